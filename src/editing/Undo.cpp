#include "editing/Undo.h"

#include <optional>

#include "core/Folders.h"
#include "editing/EditFrame.h"
#include "platform/base/RuntimeError.h"
#include "platform/base/Text.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// Loads the undo file and writes it to the image's own; the failure where there is one.
std::optional<RuntimeError> BringBack(MainViewFrm& view) {
    try {
        view.MainImage.Picture =
            view.Module().platform.pictures.Load(GetTempFolder(view.Module()) + UndoFile);
        WriteMainImage(view);
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

}  // namespace

void mnuUndo_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    if (const auto error = BringBack(view)) {
        view.App().MessageBox(
            {.text = "Unable to undo changes." + std::string(NewLine2) + error->Description() + "...",
             .icon = forms::BoxIcon::Exclamation});
        return;
    }
    view.Form_Resize();
    view.ScrollHome();
    view.menu.mnuUndo.Caption = "Can't Undo";
    view.menu.mnuUndo.Enabled = false;
    module.DoEvents();
}

}  // namespace tavrix
