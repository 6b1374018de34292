#pragma once

#include <string>
#include <vector>

namespace tavrix {

/// A file of the program's own, and where a package gets it from.
struct ProgramFile {
    std::string name;    ///< in the package; one of the library folder has that folder in front of it
    std::string source;  ///< a full drive path

    friend bool operator==(const ProgramFile&, const ProgramFile&) = default;
};

/// The program's own files, as far as somebody else needs them to install it and to run it.
class ProgramFiles {
  public:
    virtual ~ProgramFiles() = default;
    /// All of them, in the order in which they are copied. No two names differ in case alone. Throws RuntimeError where
    /// they cannot be told, or not be got ready; a file that is told may still be missing.
    [[nodiscard]] virtual std::vector<ProgramFile> List() = 0;
};

}  // namespace tavrix
