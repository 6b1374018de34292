#include "viewer/Opening.h"

#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/RecentLists.h"
#include "core/UnsavedImage.h"
#include "viewer/MainViewFrm.h"
#include "viewer/MenuState.h"

namespace tavrix {
namespace {

/// Loads the picture and lays the window out; the failure where there is one.
std::optional<RuntimeError> ShowPicture(MainViewFrm& view, const std::string& path) {
    try {
        view.MainImage.Picture = view.Module().platform.pictures.Load(path);
        view.Form_Resize();
        view.ScrollHome();
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

/// The state without an image, in which a failed load and a cleared screen leave the view.
void ShowNoImage(MainViewFrm& view) {
    view.MainImage.Picture = Picture();
    view.MainImage.Picture = view.ImageDefault.Picture;
    view.Caption = ProductName;
    view.Module().CurrentImage.clear();
    ResetEmptyView(view);
    view.Form_Resize();
    view.ScrollHome();
}

void TellFailure(MainViewFrm& view, const OpenFailure& failure, const RuntimeError& error) {
    view.App().MessageBox({.text = failure.text + std::string(NewLine2) + error.Description() + "...",
                           .title = failure.title,
                           .icon = forms::BoxIcon::Stop});
}

}  // namespace

void LoadIntoMainView(MainViewFrm& view, const std::string& anyPath, const OpenFailure& failure) {
    MainModule& module = view.Module();
    const std::string path = FullPath(module, anyPath);
    forms::BusyGuard busy(module.Screen());
    view.picFrame.Visible = false;
    module.DoEvents();
    if (const auto error = ShowPicture(view, path)) {
        TellFailure(view, failure, *error);
        ShowNoImage(view);
        busy.Release();
        view.picFrame.Visible = true;
        return;
    }
    SkipFailure([&] { ChangeToFolderOf(module, path); });
    module.CurrentImage = path;
    view.ShowTitleOf(path);
    AddRecentFile(module, module.CurrentImage);
    SetImageLoadedMenus(view);
    busy.Release();
    if (module.config.ViewFullScreen) view.menu.mnuFullScreen.Click();
    view.picFrame.Visible = true;
}

void mnuReloadImage_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    const forms::BusyGuard busy(module.Screen());
    view.selection.Drop();
    view.picFrame.Visible = false;
    if (const auto error = ShowPicture(view, module.CurrentImage)) {
        TellFailure(view, {"Unable to open the selected file."}, *error);
        ShowNoImage(view);
    }
    module.DoEvents();
    view.picFrame.Visible = true;
}

void mnuClear_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy() || !ConfirmDiscard(module)) return;
    const forms::BusyGuard busy(module.Screen());
    view.picFrame.Refresh();
    view.PictureTemp.Picture = Picture();
    view.PictureTemp.Picture = view.ImageDefault.Picture;
    ShowNoImage(view);
    view.picFrame.Visible = true;
}

}  // namespace tavrix
