#pragma once

#include "platform/services/Clipboard.h"
#include "platform/services/Desktop.h"
#include "platform/services/Drives.h"
#include "platform/services/Files.h"
#include "platform/services/Help.h"
#include "platform/services/NViewLib.h"
#include "platform/services/Pictures.h"
#include "platform/services/Process.h"
#include "platform/services/Profile.h"
#include "platform/services/Registry.h"
#include "platform/services/SaverPassword.h"
#include "platform/services/Shell.h"
#include "platform/services/Sound.h"
#include "platform/services/System.h"
#include "platform/services/UserStore.h"
#include "platform/services/Wakefulness.h"

namespace tavrix {

/// All that the logic asks of a platform besides windows. The composition owns the services.
struct Services {
    Files& files;
    Drives& drives;
    Profile& profile;
    Registry& registry;
    UserStore& store;
    Shell& shell;
    Pictures& pictures;
    Clipboard& clipboard;
    Sound& sound;
    Help& help;
    System& system;
    Process& process;
    NViewLib& viewLib;
    Wakefulness& wakefulness;
    Desktop& desktop;
    SaverPassword& saverPassword;
};

}  // namespace tavrix
