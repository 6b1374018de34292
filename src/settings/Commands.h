#pragma once

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries of the preferences and of the Help menu their handlers, and those that open the desktop's own
/// dialogs.
void InstallSettingsCommands(MainViewFrm& view);

}  // namespace tavrix
