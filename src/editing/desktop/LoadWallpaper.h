#pragma once

namespace tavrix {

class MainViewFrm;

/// Brings in the picture that is the desktop's wallpaper.
void mnuLoadWallpaper_Click(MainViewFrm& view);

}  // namespace tavrix
