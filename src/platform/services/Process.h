#pragma once

#include <string>

namespace tavrix {

class Process {
  public:
    virtual ~Process() = default;
    /// The command line behind the program's name, as one string.
    [[nodiscard]] virtual std::string CommandLine() = 0;
    /// The program's own folder as a drive path; the backslash at the end may be missing.
    [[nodiscard]] virtual std::string Path() = 0;
    /// Ends the process at once: no window is asked, no handler runs.
    [[noreturn]] virtual void End() = 0;
};

}  // namespace tavrix
