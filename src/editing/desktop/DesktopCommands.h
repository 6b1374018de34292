#pragma once

namespace tavrix {

class MainViewFrm;

/// The part of InstallEditingCommands that deals with the desktop: its capture, its wallpaper, its pattern.
void InstallDesktopCommands(MainViewFrm& view);

}  // namespace tavrix
