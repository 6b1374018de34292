#pragma once

#include <string>

namespace tavrix {

class Shell {
  public:
    virtual ~Shell() = default;

    /// Tells the desktop's list of recent documents of a file.
    virtual void AddRecent(const std::string& path) = 0;
    /// Empties the desktop's list of recent documents, that of all programs. False when it was left as it is.
    [[nodiscard]] virtual bool ClearRecent() = 0;
    /// Shows an address of the web in the user's browser. False when that could not be started.
    [[nodiscard]] virtual bool OpenAddress(const std::string& address) = 0;
    /// Starts a command line without waiting for its end. False when it could not be started.
    [[nodiscard]] virtual bool Run(const std::string& commandLine) = 0;
    /// The target of a shortcut file; empty when it has none.
    [[nodiscard]] virtual std::string ResolveLink(const std::string& path) = 0;
    /// Moves a file (a full drive path) to the user's trash, from where the desktop can bring it back. The file is
    /// in the trash when this returns, and at its place when it throws; it is never removed for good.
    /// Throws 53 when there is no such file (a folder is none), 61 when the trash has no room for it, 70 when the
    /// file may not be taken away or no trash may be used, 75 when no trash can take it, and 52, 68, 71 as files do.
    virtual void Trash(const std::string& path) = 0;
};

}  // namespace tavrix
