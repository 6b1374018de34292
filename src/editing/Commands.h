#pragma once

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries of editing their handlers.
void InstallEditingCommands(MainViewFrm& view);

}  // namespace tavrix
