#pragma once

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries of the user's lists their handlers.
void InstallListCommands(MainViewFrm& view);

}  // namespace tavrix
