#pragma once

namespace tavrix {

class MainViewFrm;

/// Switches the desktop's wallpaper off, once the user agrees.
void mnuClearWallpaper_Click(MainViewFrm& view);

}  // namespace tavrix
