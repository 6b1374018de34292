#pragma once

#include "platform/headless/FakeProcess.h"
#include "platform/headless/FakeSound.h"
#include "platform/headless/FakeSystem.h"
#include "platform/headless/FaultPlan.h"
#include "platform/headless/MemoryClipboard.h"
#include "platform/headless/MemoryDisks.h"
#include "platform/headless/MemoryDrives.h"
#include "platform/headless/MemoryFiles.h"
#include "platform/headless/MemoryPictures.h"
#include "platform/headless/MemoryProfile.h"
#include "platform/headless/MemoryRegistry.h"
#include "platform/headless/MemoryUserStore.h"
#include "platform/headless/MemoryViewLib.h"
#include "platform/headless/RecordingDesktop.h"
#include "platform/headless/RecordingHelp.h"
#include "platform/headless/RecordingShell.h"
#include "platform/headless/RecordingWakefulness.h"
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

    tavrix::Services services{files, drives, profile, registry, store,   shell,       pictures, clipboard,
                              sound, help,   system,  process,  viewLib, wakefulness, desktop};
};

}  // namespace tavrix::headless
