#pragma once

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries that copy from and to floppies and delete on them their handlers.
void InstallFloppyCommands(MainViewFrm& view);

}  // namespace tavrix
