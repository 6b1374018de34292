#include "lists/frmBrowseQuick.h"
#include "lists/frmFavFolder.h"
#include "lists/frmFavorites.h"
#include "lists/frmQuickFolders.h"
#include "scenes/WindowScenes.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::scenes {
namespace {

frmQuickFolders& QuickFolders(Scenery& scenery) {
    auto& quick = scenery.app.Load<frmQuickFolders>(scenery.module);
    quick.Rows.front().txtName.Text = "Holidays";
    quick.Rows.front().lblPath.Caption = "C:\\Pictures\\Holidays & more\\";
    return quick;
}

forms::Form& Quick(Scenery& scenery) {
    return QuickFolders(scenery);
}

forms::Form& BrowsingQuick(Scenery& scenery) {
    return scenery.app.Load<frmBrowseQuick>(scenery.module, QuickFolders(scenery));
}

forms::Form& Favorites(Scenery& scenery) {
    scenery.module.config.FavoriteFiles = {"C:\\Pictures\\Holidays & more\\beach.jpg", "",
                                           "C:\\Pictures\\picture number 2.bmp"};
    return OfView<frmFavorites>(scenery);
}

}  // namespace

std::vector<WindowScene> ListWindows() {
    return {
        {"frmFavFolder", OfModule<frmFavFolder>},
        {"frmFavorites", Favorites},
        {"frmQuickFolders", Quick, "es"},
        {"frmBrowseQuick", BrowsingQuick},
    };
}

}  // namespace tavrix::scenes
