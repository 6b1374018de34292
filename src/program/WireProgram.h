#pragma once

#include "core/Main.h"
#include "platform/services/IdleStart.h"
#include "platform/services/ProgramFiles.h"

namespace tavrix {

class MainViewFrm;

/// Joins the subsystems into the one program that is shipped and tested: which window leads which life, what the menu
/// does, where help goes. Knows no toolkit. All must outlive every window. A package of a show gets `programFiles`; null for
/// those that lie in the program's folder and the system's. The settings of the saver switch `idleStart`, if there is one.
void WireProgram(MainModule& module, Lives& lives, ProgramFiles* programFiles = nullptr,
                 IdleStart* idleStart = nullptr);

/// The main view with all its commands, loaded and not shown yet. It is what `lives.ShowMainView` shows.
MainViewFrm& LoadMainView(MainModule& module, Lives& lives, ProgramFiles* programFiles = nullptr);

}  // namespace tavrix
