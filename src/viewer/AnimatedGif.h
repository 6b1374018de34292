#pragma once

#include <functional>
#include <string>

namespace tavrix {

class MainViewFrm;

/// Plays the image on show where it is an animated GIF; otherwise a box says why not. `play` shows the stage modally,
/// with the player and this file, which need not be one that can be played. It runs out of the topmost band, and
/// throws nothing.
void mnuAnimatedGIF_Click(MainViewFrm& view, const std::function<void(const std::string& path)>& play);

}  // namespace tavrix
