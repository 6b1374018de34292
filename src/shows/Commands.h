#pragma once

#include "core/Main.h"
#include "shows/saver/SaverSurroundings.h"

namespace tavrix {

/// Gives the lives of the process what slide shows are to them. All must outlive its use.
void InstallShowCommands(MainModule& module, Lives& lives, SaverSurroundings ofSaver = {});

}  // namespace tavrix
