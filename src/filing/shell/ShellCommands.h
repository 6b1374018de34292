#pragma once

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries that hand a floppy, a folder or a setting to the desktop their handlers.
void InstallShellCommands(MainViewFrm& view);

}  // namespace tavrix
