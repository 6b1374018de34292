#include "editing/clipboard/Copy.h"

#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "editing/clipboard/SelectedArea.h"
#include "editing/frame/ScratchPicture.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

void CopySelection(MainViewFrm& view) {
    TakeWidthOfSelection(view);
    TakeHeightOfSelection(view);
    CopySelectionToPictureTemp(view, 1);
    view.Module().platform.clipboard.Set(ImageOfPictureTemp(view));
    view.Module().DoEvents();
    ClearPictureTemp(view);
}

/// Does the work; the failure where there is one.
std::optional<RuntimeError> CopyToClipboard(MainViewFrm& view) {
    const MainModule& module = view.Module();
    try {
        module.platform.clipboard.Clear();
        module.DoEvents();
        if (view.selection.SelectionShown) {
            CopySelection(view);
        } else {
            module.platform.clipboard.Set(view.MainImage.Image());
        }
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

}  // namespace

void mnuCopy_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    module.DoEvents();
    const forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    if (const auto error = CopyToClipboard(view)) {
        ClearPictureTemp(view);
        view.App().MessageBox({.text = "Unable to copy current image to the clipboard." +
                                       std::string(NewLine2) + error->Description() + "...",
                               .icon = forms::BoxIcon::Stop});
        return;
    }
    module.DoEvents();
}

}  // namespace tavrix
