#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace tavrix {

/// A program that this one has started. It is of a session of its own, so that what is typed at a terminal or sent to a
/// group of processes does not reach it, and no signal is blocked or ignored in it. It runs on when this object ends.
class ChildProgram {
  public:
    /// Starts the program at a host path, or of a name that is looked for in PATH. `call` is what it is told: its name and
    /// its arguments. `standard` is an open file that becomes its standard input and output; -1: it has ours.
    [[nodiscard]] static std::optional<ChildProgram> Start(const std::string& path,
                                                           std::vector<std::string> call, int standard = -1);

    ChildProgram(ChildProgram&& other) noexcept;
    ChildProgram& operator=(ChildProgram&& other) noexcept;
    ~ChildProgram() { Leave(); }

    /// How it ended, as waitpid tells it, once it has within this time; told once. Nothing while it runs.
    [[nodiscard]] std::optional<int> End(std::chrono::milliseconds within);
    void Kill() const;

  private:
    explicit ChildProgram(pid_t child) : child_(child) {}
    void Leave();

    pid_t child_ = 0;  ///< 0: its end has been noted
};

}  // namespace tavrix
