#pragma once

namespace tavrix {

/// A shared library that only some starts of the program need: it is loaded here, and stays for the process.
class LateLibrary {
  public:
    /// `file` is a name that the system's loader knows, such as libSDL2-2.0.so.0.
    explicit LateLibrary(const char* file);

    /// Puts the function of this name into a pointer of its type. False, and null, when there is none.
    template <class Function>
    bool Find(const char* name, Function*& into) const {
        into = reinterpret_cast<Function*>(Symbol(name));
        return into != nullptr;
    }

  private:
    [[nodiscard]] void* Symbol(const char* name) const;

    void* handle_;
};

}  // namespace tavrix
