#pragma once

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries of image viewing their handlers.
void InstallViewerCommands(MainViewFrm& view);

}  // namespace tavrix
