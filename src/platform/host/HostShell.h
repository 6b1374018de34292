#pragma once

#include <string>

#include "platform/host/DriveMap.h"
#include "platform/host/HostPaths.h"
#include "platform/services/Shell.h"

namespace tavrix {

/// The desktop around us: its list of recent documents, its programs, its links.
class HostShell final : public Shell {
  public:
    HostShell(DriveMap& drives, HostPaths paths);

    /// Silent when the desktop's list cannot be read or written; an empty path does nothing.
    void AddRecent(const std::string& path) override;
    /// Known command lines start the program that does the same on this desktop; no shell takes part.
    bool Run(const std::string& commandLine) override;
    /// Symbolic links, and .desktop files of the type Link that lead to a file. Binary shortcuts have no target here.
    std::string ResolveLink(const std::string& path) override;

  private:
    DriveMap& drives_;
    HostPaths paths_;
};

}  // namespace tavrix
