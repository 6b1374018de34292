#pragma once

namespace tavrix {

class MainViewFrm;
struct MainModule;

/// Gives the menu entries of the preferences and of the Help menu their handlers, and those that open the desktop's own
/// dialogs.
void InstallSettingsCommands(MainViewFrm& view);

/// Opens the about box above whatever is open.
void ShowAbout(MainModule& module);

}  // namespace tavrix
