#pragma once

#include <functional>

namespace tavrix {

class MainViewFrm;

/// Gives the menu entries of browsing their handlers. `viewStageImage` shows MainModule::StageImage on the stage until the
/// user closes it; it must outlive the main view.
void InstallBrowsingCommands(MainViewFrm& view, const std::function<void()>& viewStageImage);

}  // namespace tavrix
