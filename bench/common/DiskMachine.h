#pragma once

#include <string>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "backends/linux/DriveMap.h"
#include "backends/linux/HostFiles.h"
#include "core/MainModule.h"

namespace tavrix::bench {

/// The logic on real disks. Its windows, and all the rest, are in memory.
class DiskMachine {
  public:
    /// `drives` as the program is told them: "C=/folder;D=/another".
    explicit DiskMachine(const std::string& drives) : drives_(SourcesOf(drives)) {}

    [[nodiscard]] MainModule& Module() { return module_; }
    [[nodiscard]] HostFiles& Files() { return files_; }

  private:
    static DriveMap::Sources SourcesOf(const std::string& drives) {
        DriveMap::Sources sources;
        sources.drives = drives;
        return sources;
    }

    headless::HeadlessServices rest_;
    headless::HeadlessToolkit toolkit_;
    forms::Application app_{toolkit_};
    DriveMap drives_;
    HostFiles files_{drives_, HostPaths()};
    Services services_{files_,        rest_.drives,      rest_.profile,  rest_.registry,
                       rest_.store,   rest_.shell,       rest_.pictures, rest_.clipboard,
                       rest_.sound,   rest_.help,        rest_.system,   rest_.process,
                       rest_.viewLib, rest_.wakefulness, rest_.desktop,  rest_.saverPassword};
    MainModule module_{app_, services_};
};

}  // namespace tavrix::bench
