#include "viewer/MenuState.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/Text.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// A path as a menu entry shows it: whole, or its end.
std::string MenuPath(const std::string& path) {
    constexpr std::size_t tooLong = 61;
    constexpr std::size_t shown = 57;
    return CharacterCount(path) < tooLong ? path : "..." + Right(path, shown);
}

bool AnyFilled(const auto& list) {
    return std::ranges::any_of(list, [](const std::string& entry) { return !entry.empty(); });
}

/// The entries that need an image, all but the one for animations.
std::array<forms::Menu*, 12> ImageEntries(MainMenu& menu) {
    return {&menu.mnuSaveCopy,     &menu.mnuExploreFolder,      &menu.mnuImageSize,
            &menu.mnuFullScreen,   &menu.mnuExportBMP,          &menu.mnuExportJPG,
            &menu.mnuSetWallpaper, &menu.mnuDeleteCurrentImage, &menu.mnuImportPalette,
            &menu.mnuFavoritesAdd, &menu.mnuRenameCurrentImg,   &menu.mnuMoveCurrentImg};
}

}  // namespace

void RefreshRecentMenu(MainMenu& menu, const AppConfig& config) {
    menu.mnuFileLine3.Visible = AnyFilled(config.Recent);
    for (std::size_t i = 0; i < config.Recent.size(); ++i) {
        const std::string& path = config.Recent[i];
        forms::Menu& entry = *menu.mnuLast[i];
        if (!path.empty()) entry.Caption = "  " + MenuPath(path);
        entry.Visible = !path.empty();
    }
}

void RefreshFavoritesMenu(MainMenu& menu, const AppConfig& config) {
    for (std::size_t i = 0; i < config.FavoriteFiles.size(); ++i) {
        const std::string& path = config.FavoriteFiles[i];
        forms::Menu& entry = menu.mnuFavoritesList[static_cast<int>(i)];
        if (!path.empty()) entry.Caption = MenuPath(path);
        entry.Visible = !path.empty();
    }
    const bool any = AnyFilled(config.FavoriteFiles);
    menu.mnuFavoritesLine1.Visible = any;
    menu.mnuFavoritesRemove.Enabled = any;
}

void ResetEmptyView(MainViewFrm& view) {
    for (forms::Menu* entry : ImageEntries(view.menu))
        entry->Enabled = false;
    view.menu.mnuAnimatedGIF.Enabled = false;
    view.menu.mnuEdit.Visible = false;
    view.fullScreenCorner.SetWanted(false);
    view.Caption = ProductName;
}

void SetImageLoadedMenus(MainViewFrm& view) {
    view.Module().LastOpenedStays = false;
    view.menu.mnuUndo.Enabled = false;
    view.menu.mnuUndo.Caption = "Can't Undo";
    view.menu.mnuAnimatedGIF.Enabled = EndsInIgnoringCase(view.Module().CurrentImage, ".GIF");
    for (forms::Menu* entry : ImageEntries(view.menu))
        entry->Enabled = true;
    view.menu.mnuEdit.Visible = true;
    view.fullScreenCorner.SetWanted(true);
}

}  // namespace tavrix
