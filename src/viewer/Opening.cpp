#include "viewer/Opening.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/UnsavedImage.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// Shows the picture of a file; whether it did. A failure is told, and leaves the view without an image.
bool ShowPicture(MainViewFrm& view, const std::string& path, const OpenFailure& failure) {
    try {
        view.imageOnShow.Load(path);
        return true;
    } catch (const RuntimeError& error) {
        view.App().MessageBox({.text = failure.text + std::string(NewLine2) + error.Description() + "...",
                               .title = failure.title,
                               .icon = forms::BoxIcon::Stop});
    }
    view.imageOnShow.Lose();
    return false;
}

}  // namespace

void LoadIntoMainView(MainViewFrm& view, const std::string& anyPath, const OpenFailure& failure) {
    MainModule& module = view.Module();
    const std::string path = FullPath(module, anyPath);
    forms::BusyGuard busy(module.Screen());
    view.picFrame.Visible = false;
    module.DoEvents();
    if (!ShowPicture(view, path, failure)) {
        busy.Release();
        view.picFrame.Visible = true;
        return;
    }
    SkipFailure([&] { ChangeToFolderOf(module, path); });
    view.imageOnShow.Opened(path);
    busy.Release();
    if (module.config.ViewFullScreen) view.menu.mnuFullScreen.Click();
    view.picFrame.Visible = true;
}

void mnuReloadImage_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    const forms::BusyGuard busy(module.Screen());
    view.selection.Drop();
    view.picFrame.Visible = false;
    ShowPicture(view, module.CurrentImage, {"Unable to open the selected file."});
    module.DoEvents();
    view.picFrame.Visible = true;
}

void mnuClear_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (!module.Busy() && ConfirmDiscard(module)) view.imageOnShow.Clear();
}

}  // namespace tavrix
