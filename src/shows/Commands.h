#pragma once

#include "core/Main.h"

namespace tavrix {

/// Gives the lives of the process what slide shows are to them. Both must outlive its use.
void InstallShowCommands(MainModule& module, Lives& lives);

}  // namespace tavrix
