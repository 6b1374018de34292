#pragma once

#include <functional>

#include "platform/services/IdleStart.h"

namespace tavrix {

/// What the settings of the screen saver need of others.
struct SaverSurroundings {
    /// Shows the about box.
    std::function<void()> showAbout = [] {};
    /// Null where Tavrix cannot start the saver by itself.
    IdleStart* idleStart = nullptr;
};

}  // namespace tavrix
