#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/MainModule.h"

namespace tavrix {

/// Copies of a floppy's files that lie in the temporary folder for a while, under their names in upper case. They replace
/// what has these names there, but for the working file and the undo file of an edit: those are set aside meanwhile.
class Staging {
  public:
    /// For files of these names. Names that differ in case alone get places of their own.
    Staging(const MainModule& module, const std::vector<std::string>& names);
    ~Staging() { Clear(); }
    Staging(const Staging&) = delete;
    Staging& operator=(const Staging&) = delete;

    /// Where the copy of a file lies.
    [[nodiscard]] const std::string& PathOf(const std::string& name) const { return paths_.at(name); }
    /// Makes room for the copies. Throws RuntimeError where what is to be kept cannot be set aside; nothing is to be copied
    /// then.
    void SetAside();
    /// There is a copy at this path now.
    void Staged(const std::string& path) { staged_.push_back(path); }
    /// Removes the copies, passing over failures, and puts back what was set aside.
    void Clear();

  private:
    const MainModule& module_;
    /// Asked for once: a temporary folder that is away for a moment must not become another one in the middle.
    std::string folder_;
    std::map<std::string, std::string> paths_;  ///< by name
    std::vector<std::string> staged_;
    std::vector<std::string> aside_;  ///< names of what is set aside
};

/// Puts back what a process that was killed has left set aside. For the start. A working file that comes back so has not
/// been asked about, and outlives the exit.
void PutBackSetAside(MainModule& module);

}  // namespace tavrix
