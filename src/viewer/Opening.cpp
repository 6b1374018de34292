#include "viewer/Opening.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/RecentLists.h"
#include "core/UnsavedImage.h"
#include "viewer/MainViewFrm.h"
#include "viewer/MenuState.h"

namespace tavrix {
namespace {

/// Whether `show` could show a picture. A failure is told, and leaves the view without an image.
bool ShowPicture(MainViewFrm& view, const OpenFailure& failure, const std::function<void()>& show) {
    try {
        show();
        return true;
    } catch (const RuntimeError& error) {
        view.App().MessageBox({.text = failure.text + std::string(NewLine2) + error.Description() + "...",
                               .title = failure.title,
                               .icon = forms::BoxIcon::Stop});
    }
    view.imageOnShow.Lose();
    return false;
}

void OpenedAside(MainViewFrm& view, const std::string& path) {
    view.imageOnShow.Become(path);
    SetImageLoadedMenus(view);
    TellDesktop(view.Module(), path);
}

}  // namespace

void OpenIntoMainView(MainViewFrm& view, const std::string& path, const OpenFailure& failure,
                      const WayOfOpening& way) {
    const MainModule& module = view.Module();
    forms::BusyGuard busy(module.Screen());
    view.picFrame.Visible = false;
    module.DoEvents();
    if (!ShowPicture(view, failure, way.Show)) {
        busy.Release();
        view.picFrame.Visible = true;
        return;
    }
    SkipFailure([&] { ChangeToFolderOf(module, path); });
    if (!way.Become()) return;
    busy.Release();
    if (module.config.ViewFullScreen) view.menu.mnuFullScreen.Click();
    view.picFrame.Visible = true;
}

void LoadIntoMainView(MainViewFrm& view, const std::string& anyPath, const OpenFailure& failure,
                      RecentFiles recent) {
    const std::string path = FullPath(view.Module(), anyPath);
    const auto become = [&] {
        if (recent == RecentFiles::TakeIt) {
            view.imageOnShow.Opened(path);
        } else {
            OpenedAside(view, path);
        }
        return true;
    };
    OpenIntoMainView(view, path, failure, {[&] { view.imageOnShow.Load(path); }, become});
}

void mnuReloadImage_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    const forms::BusyGuard busy(module.Screen());
    view.selection.Drop();
    view.picFrame.Visible = false;
    ShowPicture(view, {"Unable to open the selected file."},
                [&] { view.imageOnShow.Load(module.CurrentImage); });
    module.DoEvents();
    view.picFrame.Visible = true;
}

void mnuClear_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (!module.Busy() && ConfirmDiscard(module)) view.imageOnShow.Clear();
}

}  // namespace tavrix
