#pragma once

#include "core/Main.h"
#include "shows/saver/SaverSurroundings.h"

namespace tavrix {

class MainViewFrm;

/// Gives the lives of the process the settings of the screen saver. All must outlive its use.
void InstallSaver(MainModule& module, Lives& lives, SaverSurroundings surroundings);

/// Gives the main view's menu the commands of the screen saver.
void InstallSaverCommands(MainViewFrm& view);

/// Shows the desktop's own settings of screen savers.
void mnuSetScreenSaver_Click(MainViewFrm& view);
/// Starts the settings of our screen saver, which are a process of their own.
void mnuSSaverSettings_Click(MainViewFrm& view);

}  // namespace tavrix
