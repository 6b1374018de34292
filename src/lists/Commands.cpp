#include "lists/Commands.h"

#include "lists/FavoriteFiles.h"
#include "lists/RecentFiles.h"
#include "lists/frmFavFolder.h"
#include "lists/frmFavorites.h"
#include "lists/frmQuickFolders.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void InstallListCommands(MainViewFrm& view, const OtherSubsystems& others) {
    for (std::size_t i = 0; i < view.menu.mnuLast.size(); ++i)
        view.menu.mnuLast[i]->Install([&view, i] { mnuLast_Click(view, i); });
    view.menu.mnuFavoritesAdd.Install([&view] { mnuFavoritesAdd_Click(view); });
    view.menu.mnuFavoritesRemove.Install([&view] { mnuFavoritesRemove_Click(view); });
    view.menu.mnuFavoritesClear.Install([&view] { mnuFavoritesClear_Click(view); });
    for (std::size_t i = 0; i < view.Module().config.FavoriteFiles.size(); ++i) {
        forms::Menu& entry = view.menu.mnuFavoritesList[static_cast<int>(i)];
        entry.Literal = true;
        entry.Install([&view, i] { mnuFavoritesList_Click(view, i); });
    }
    view.menu.mnuViewFavorites.Install([&view] { mnuViewFavorites_Click(view); });
    view.menu.mnuSaveFavoritesAsShow.Install([&view, others] { mnuSaveFavoritesAsShow_Click(view, others); });
    view.menu.mnuFavoriteFolder.Install([&view] { mnuFavoriteFolder_Click(view); });
    view.menu.mnuQuickFolders.Install([&view] { mnuQuickFolders_Click(view); });
}

}  // namespace tavrix
