#pragma once

#include <string>
#include <vector>

#include "backends/linux/DriveMap.h"
#include "backends/linux/HostDrives.h"
#include "backends/linux/HostFiles.h"
#include "backends/linux/HostPaths.h"
#include "backends/linux/HostPictures.h"
#include "backends/linux/HostProcess.h"
#include "backends/linux/HostProfile.h"
#include "backends/linux/HostRegistry.h"
#include "backends/linux/HostShell.h"
#include "backends/linux/HostSound.h"
#include "backends/linux/HostUserStore.h"
#include "backends/linux/HostViewLib.h"

namespace tavrix {

/// The services that need no window system, one of each.
struct HostPlatform {
    /// `arguments` are those behind the program's name. `ofProgram` is the executable whose folder is the program's; the
    /// running one when it is empty.
    explicit HostPlatform(std::vector<std::string> arguments, const std::string& ofProgram = {});
    HostPlatform(const HostPlatform&) = delete;
    HostPlatform& operator=(const HostPlatform&) = delete;

    enum class Size { Large, Small };

    /// Starts decoding the picture that the command line names, if it is of this size. A large one is worth a thread while
    /// the window system starts; a small one only after it, since loading libraries takes longer beside a thread.
    void PrefetchPicture(Size size);

    HostPaths paths;
    DriveMap driveMap;
    HostProcess process;
    HostFiles files{driveMap, paths};
    HostDrives drives{driveMap};
    HostProfile profile{driveMap};
    HostRegistry registry{paths};
    HostUserStore store{paths};
    HostShell shell{driveMap, paths};
    HostSound sound{files, driveMap};
    HostPictures pictures{files};
    HostViewLib viewLib{files};
};

}  // namespace tavrix
