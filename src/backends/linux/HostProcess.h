#pragma once

#include <functional>
#include <string>
#include <vector>

#include "backends/linux/DriveMap.h"
#include "backends/linux/HostPaths.h"
#include "platform/services/Process.h"

namespace tavrix {

struct DesktopStart;

class HostProcess final : public Process {
  public:
    /// `arguments` are those behind the program's name.
    HostProcess(DriveMap& drives, HostPaths paths, const std::vector<std::string>& arguments);

    /// The arguments joined by blanks. Where they are one host path (they name an existing file, or hold a slash past
    /// the first character), also behind SCRNSAVE, that path is told as a drive path. Addresses of files (file:///)
    /// count as host paths; other addresses and switches (/C) stay as they are. Behind an option of the desktop's menus
    /// everything is a path.
    std::string CommandLine() override;
    std::string Path() override;
    [[noreturn]] void End() override;
    /// What still has to be done then. Null: nothing.
    std::function<void()> BeforeEnd;

  private:
    [[nodiscard]] std::string WithDrivePath(const std::string& text);
    [[nodiscard]] std::string WithDesktopPath(const DesktopStart& start);

    DriveMap& drives_;
    HostPaths paths_;
    std::string commandLine_;
};

}  // namespace tavrix
