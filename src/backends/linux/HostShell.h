#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "backends/linux/DriveMap.h"
#include "backends/linux/HostPaths.h"
#include "backends/linux/RecentDocuments.h"
#include "backends/shared/ShellLink.h"
#include "platform/services/Shell.h"

namespace tavrix {

/// The desktop around us: its list of recent documents, its programs, its links.
class HostShell final : public Shell {
  public:
    HostShell(DriveMap& drives, HostPaths paths);

    /// Silent when the desktop's list cannot be read or written; an empty path does nothing. With somebody who has work done
    /// later it is written then, since who waits for a picture does not wait for the desktop's list.
    void AddRecent(const std::string& path) override;
    /// Has work done soon, in this thread. Null: nobody does.
    std::function<void(std::function<void()> work)> Later;
    /// Writes what waits; to be called before the process ends.
    void WriteRecent();
    bool ClearRecent() override;
    bool OpenAddress(const std::string& address) override;
    /// Known command lines start the program that does the same on this desktop; no shell takes part.
    bool Run(const std::string& commandLine) override;
    /// Symbolic links, .desktop files of the type Link that lead to a file, and .lnk files. Of the latter a target
    /// that is there comes first, then one beside the link, then whatever path is stored.
    std::string ResolveLink(const std::string& path) override;
    void Trash(const std::string& path) override;

  private:
    /// Puts what becomes of the desktop's list in its place, under its lock. False when it was left as it is: it could not be
    /// read whole, or nothing came of it.
    [[nodiscard]] bool ChangeRecent(
        const std::function<std::optional<std::string>(const std::string&)>& change);
    [[nodiscard]] std::string TargetOf(const ShellLink& link, const std::string& linkPath);
    [[nodiscard]] bool IsThere(const std::string& path);

    DriveMap& drives_;
    HostPaths paths_;
    std::vector<RecentDocument> recent_;  ///< still to be written
};

}  // namespace tavrix
