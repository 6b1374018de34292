#pragma once

#include "viewer/OtherSubsystems.h"

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries of the user's lists their handlers.
void InstallListCommands(MainViewFrm& view, const OtherSubsystems& others);

}  // namespace tavrix
