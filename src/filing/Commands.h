#pragma once

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries that copy, move, rename, delete and show files their handlers.
void InstallFilingCommands(MainViewFrm& view);

}  // namespace tavrix
