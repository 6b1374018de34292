#pragma once

#include "backends/headless/FakeProcess.h"
#include "backends/headless/FakeSound.h"
#include "backends/headless/FakeSystem.h"
#include "backends/headless/FaultPlan.h"
#include "backends/headless/MemoryClipboard.h"
#include "backends/headless/MemoryDisks.h"
#include "backends/headless/MemoryDrives.h"
#include "backends/headless/MemoryFiles.h"
#include "backends/headless/MemoryPictures.h"
#include "backends/headless/MemoryProfile.h"
#include "backends/headless/MemoryRegistry.h"
#include "backends/headless/MemoryUserStore.h"
#include "backends/headless/MemoryViewLib.h"
#include "backends/headless/RecordingDesktop.h"
#include "backends/headless/RecordingHelp.h"
#include "backends/headless/RecordingShell.h"
#include "backends/headless/RecordingWakefulness.h"
#include "backends/headless/ScriptedSaverPassword.h"
#include "platform/services/Services.h"

namespace tavrix::headless {

/// A platform in memory, one of each service. To begin with there is a floppy drive A: without a disk, and C: with
/// the empty folders C:\Tavrix (the program's), C:\Temp, C:\Windows and C:\Windows\System.
struct HeadlessServices {
    HeadlessServices();
    HeadlessServices(const HeadlessServices&) = delete;
    HeadlessServices& operator=(const HeadlessServices&) = delete;

    FaultPlan faults;
    MemoryDisks disks;
    MemoryFiles files{disks, faults};
    MemoryDrives drives{disks, faults};
    MemoryProfile profile{disks, faults};
    MemoryRegistry registry{faults};
    MemoryUserStore store{faults};
    RecordingShell shell{disks, faults};
    MemoryPictures pictures{disks, files, faults};
    MemoryClipboard clipboard{faults};
    FakeSound sound{faults};
    RecordingHelp help{faults};
    FakeSystem system{faults};
    FakeProcess process{faults};
    MemoryViewLib viewLib{disks, faults};
    RecordingWakefulness wakefulness{faults};
    RecordingDesktop desktop{registry, faults};
    ScriptedSaverPassword saverPassword{faults};

    tavrix::Services services{files,    drives,      profile, registry,     store,  shell,
                              pictures, clipboard,   sound,   help,         system, process,
                              viewLib,  wakefulness, desktop, saverPassword};
};

}  // namespace tavrix::headless
