#include "lists/FavoriteFiles.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FloppyPrompt.h"
#include "core/HelpContexts.h"
#include "core/UnsavedImage.h"
#include "dialogs/CurrentDrive.h"
#include "viewer/MainViewFrm.h"
#include "viewer/MenuState.h"
#include "viewer/Opening.h"

namespace tavrix {
namespace {

/// The favorite files without the gaps.
std::vector<std::string> Favorites(const AppConfig& config) {
    std::vector<std::string> files;
    std::ranges::copy_if(config.FavoriteFiles, std::back_inserter(files),
                         [](const std::string& file) { return !file.empty(); });
    return files;
}

bool HasFavorites(const MainViewFrm& view, const char* nothingToDo) {
    if (view.menu.mnuFavoritesLine1.Visible) return true;
    view.App().MessageBox({.text = "You don't have any files in your favorites list." +
                                   std::string(NewLine2) + nothingToDo +
                                   ", add files to your favorite files list and then try again..."});
    return false;
}

/// The shared show is the favorite files from now on.
void MakeShow(MainModule& module) {
    const std::vector<std::string> files = Favorites(module.config);
    module.show.EraseSlides();
    module.show.InsertSlides(0, files);
    module.show.SlideCount = static_cast<std::int16_t>(files.size());
}

}  // namespace

void mnuFavoritesAdd_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    if (IsUnsavedImage(module)) {
        module.app.MessageBox({.text = "You may not add " + module.CurrentImage +
                                       " (a temporary image) to your favorites list...",
                               .title = "Tavrix - [Add To Favorite Files List]",
                               .help = true,
                               .helpContext = HelpContext::FavoriteFiles});
        return;
    }
    auto& slots = module.config.FavoriteFiles;
    const auto listed = [&](const std::string& slot) { return EqualIgnoringCase(slot, module.CurrentImage); };
    if (std::ranges::any_of(slots, listed)) {
        module.app.MessageBox({.text = "This file is already in your favorites list..."});
        return;
    }
    const auto free = std::ranges::find(slots, "");
    if (free == slots.end()) {
        module.app.MessageBox(
            {.text = "Your favorites list is full, only 20 items may be added at one time." +
                     std::string(NewLine2) + "Remove an item or clear the list and try again..."});
        return;
    }
    *free = module.CurrentImage;
    RefreshFavoritesMenu(view.menu, module.config);
}

void mnuFavoritesClear_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    const forms::Answer answer =
        module.app.MessageBox({.text = "Remove all of the images from your favorite files list?",
                               .title = "Tavrix - [Clear Favorite Files List]",
                               .icon = forms::BoxIcon::Question,
                               .buttons = forms::BoxButtons::YesNo});
    if (answer != forms::Answer::Yes) return;
    module.config.FavoriteFiles.fill("");
    RefreshFavoritesMenu(view.menu, module.config);
}

void mnuFavoritesList_Click(MainViewFrm& view, std::size_t index) {
    MainModule& module = view.Module();
    if (module.Busy() || !ConfirmDiscard(module)) return;
    const std::string path = module.config.FavoriteFiles.at(index);  // the list may change while messages run
    if (IsOnFloppy(path)) {
        const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
        if (!AsksForDisk(module, path, ImageOnFloppy)) return;
    }
    LoadIntoMainView(view, path,
                     {"Unable to open file from your favorites list:" + std::string(NewLine2) + path},
                     RecentFiles::StayAsTheyAre);
}

void mnuViewFavorites_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy() || !HasFavorites(view, "Nothing to view")) return;
    view.TheLives().EndStage();
    MakeShow(module);
    module.SlideShowActive = true;
    module.StartedAsShow = true;
    // The stage puts it back when it ends.
    if (module.config.TopMostWindow) view.SetTopmost(false);
    view.TheLives().ShowStage();
}

void mnuSaveFavoritesAsShow_Click(MainViewFrm& view, const OtherSubsystems& others) {
    MainModule& module = view.Module();
    if (module.Busy() || !HasFavorites(view, "Nothing to save")) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    view.TheLives().EndStage();
    MakeShow(module);
    TouchCurrentDrive(module);
    module.show.SaveFromArrays = true;
    others.SaveShowAs("Untitled.tvs");
    module.show.SaveFromArrays = false;
}

}  // namespace tavrix
