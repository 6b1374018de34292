#pragma once

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries of saving, exporting and importing their handlers.
void InstallSavingCommands(MainViewFrm& view);

}  // namespace tavrix
