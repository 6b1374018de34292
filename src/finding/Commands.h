#pragma once

#include "viewer/OtherSubsystems.h"

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries that find files their handlers.
void InstallFindingCommands(MainViewFrm& view, const OtherSubsystems& others);

}  // namespace tavrix
