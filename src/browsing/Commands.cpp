#include "browsing/Commands.h"

#include <memory>

#include "browsing/frmThumbFolder.h"
#include "browsing/frmThumbSelect.h"
#include "browsing/frmThumbnail.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// Has a dialog make a list, and shows it in the browser in the place of the main view.
template <class Dialog>
void Browse(MainViewFrm& view, ThumbnailList& list, const std::function<void()>& viewStageImage) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    const bool topmost = module.config.TopMostWindow;
    list.ThumbnailFolder.clear();
    auto& dialog = module.app.Load<Dialog>(module, list);
    if (topmost) view.SetTopmost(false);
    dialog.ShowModal();
    busy.Release();
    if (list.ThumbnailFolder.empty()) {
        if (topmost) view.SetTopmost(true);
        return;
    }
    if (list.ThumbnailFolder == ThumbnailList::Selected) list.ThumbnailFolder.clear();
    view.Hide();
    module.DoEvents();
    module.app.Load<frmThumbnail>(view, list, viewStageImage).Show();
}

}  // namespace

void InstallBrowsingCommands(MainViewFrm& view, const std::function<void()>& viewStageImage) {
    const auto list = std::make_shared<ThumbnailList>();
    view.menu.mnuThumbnailBrowse.Install(
        [&view, list, viewStageImage] { Browse<frmThumbFolder>(view, *list, viewStageImage); });
    view.menu.mnuThumbnailSelect.Install(
        [&view, list, viewStageImage] { Browse<frmThumbSelect>(view, *list, viewStageImage); });
}

}  // namespace tavrix
