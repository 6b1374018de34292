#pragma once

#include "core/MainModule.h"
#include "viewer/MainMenu.h"

namespace tavrix {

class MainViewFrm;

/// Shows the recent files in the File menu.
void RefreshRecentMenu(MainMenu& menu, const AppConfig& config);
/// Shows the favorite files in the Favorites menu.
void RefreshFavoritesMenu(MainMenu& menu, const AppConfig& config);

/// The menus and the title of a main view without an image.
void ResetEmptyView(MainViewFrm& view);
/// The menus after an image was loaded: all commands on it, and no undo.
void SetImageLoadedMenus(MainViewFrm& view);

}  // namespace tavrix
