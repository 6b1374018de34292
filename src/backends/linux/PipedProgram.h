#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "backends/linux/ChildProgram.h"
#include "backends/linux/HostFile.h"

namespace tavrix {

/// A program that is talked to over its standard input and output. It runs on when this object ends; its input ends then.
class PipedProgram {
  public:
    /// Starts it; a name without a slash is looked for in PATH. Its standard error is ours.
    [[nodiscard]] static std::optional<PipedProgram> Start(const std::string& program,
                                                           const std::vector<std::string>& arguments = {});

    /// Readable when it has written something, and at its end.
    [[nodiscard]] int Descriptor() const { return pipe_.Number(); }
    /// False when it does not take all of it at once, or has ended.
    [[nodiscard]] bool Write(std::string_view text) const;
    void EndInput() const;
    /// What has come up to a line's end or the end of the program, of `most` characters; nothing when it takes longer.
    [[nodiscard]] std::optional<std::string> ReadLine(std::chrono::milliseconds within,
                                                      std::size_t most = 256) const;
    /// Its exit status, once it has ended within this time; nothing while it runs, and where a signal ended it.
    [[nodiscard]] std::optional<int> Status(std::chrono::milliseconds within);
    void Kill() const { child_.Kill(); }

  private:
    PipedProgram(ChildProgram child, FileDescriptor pipe)
        : child_(std::move(child)), pipe_(std::move(pipe)) {}

    ChildProgram child_;
    FileDescriptor pipe_;
};

}  // namespace tavrix
