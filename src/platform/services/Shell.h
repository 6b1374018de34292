#pragma once

#include <string>

namespace tavrix {

class Shell {
  public:
    virtual ~Shell() = default;

    /// Tells the desktop's list of recent documents of a file.
    virtual void AddRecent(const std::string& path) = 0;
    /// Starts a command line without waiting for its end. False when it could not be started.
    [[nodiscard]] virtual bool Run(const std::string& commandLine) = 0;
    /// The target of a shortcut file; empty when it has none.
    [[nodiscard]] virtual std::string ResolveLink(const std::string& path) = 0;
};

}  // namespace tavrix
