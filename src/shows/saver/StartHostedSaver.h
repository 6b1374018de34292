#pragma once

#include <string>

#include "core/MainModule.h"
#include "shows/stage/HostedSaver.h"

namespace tavrix {

/// The start of a process that is somebody else's screen saver and no more: it reads the settings and a show, and plays it
/// on the stage. `path` is the show; empty for the one that the settings of the screen saver name. Empty when it plays,
/// else why there is nothing to play. No window is shown but the stage, and nothing is written.
[[nodiscard]] std::string StartHostedSaver(MainModule& module, const std::string& path, HostedSaver hosted);

}  // namespace tavrix
