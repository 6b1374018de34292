#pragma once

#include "core/Main.h"

namespace tavrix {

class MainViewFrm;

/// Joins the subsystems into the one program that is shipped and tested: which window leads which life, what the menu
/// does, where help goes. Knows no toolkit. Both must outlive every window.
void WireProgram(MainModule& module, Lives& lives);

/// The main view with all its commands, loaded and not shown yet. It is what `lives.ShowMainView` shows.
MainViewFrm& LoadMainView(MainModule& module, Lives& lives);

}  // namespace tavrix
