#include "lists/Commands.h"

#include "lists/RecentFiles.h"
#include "lists/frmFavFolder.h"
#include "lists/frmQuickFolders.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void InstallListCommands(MainViewFrm& view) {
    for (std::size_t i = 0; i < view.menu.mnuLast.size(); ++i)
        view.menu.mnuLast[i]->Install([&view, i] { mnuLast_Click(view, i); });
    view.menu.mnuFavoriteFolder.Install([&view] { mnuFavoriteFolder_Click(view); });
    view.menu.mnuQuickFolders.Install([&view] { mnuQuickFolders_Click(view); });
}

}  // namespace tavrix
