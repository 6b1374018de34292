#pragma once

#include <string>
#include <vector>

#include "platform/host/DriveMap.h"
#include "platform/host/HostDrives.h"
#include "platform/host/HostFiles.h"
#include "platform/host/HostPaths.h"
#include "platform/host/HostPictures.h"
#include "platform/host/HostProcess.h"
#include "platform/host/HostProfile.h"
#include "platform/host/HostRegistry.h"
#include "platform/host/HostShell.h"
#include "platform/host/HostSound.h"
#include "platform/host/HostUserStore.h"
#include "platform/host/HostViewLib.h"

namespace tavrix {

/// The services that need no window system, one of each.
struct HostPlatform {
    /// `arguments` are those behind the program's name.
    explicit HostPlatform(std::vector<std::string> arguments);
    HostPlatform(const HostPlatform&) = delete;
    HostPlatform& operator=(const HostPlatform&) = delete;

    /// Starts decoding the picture that the command line names, while the window system starts.
    void PrefetchPicture();

    HostPaths paths = HostPaths::FromEnvironment();
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
