#include "editing/frame/Undo.h"

#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/UnsavedImage.h"
#include "editing/frame/EditFrame.h"
#include "editing/frame/WorkingFile.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// Loads the undo file and writes it to the working file, which is the image from then on: a file of the user's is
/// never written. The failure where there is one; the image is then the one that it was.
std::optional<RuntimeError> BringBack(MainViewFrm& view) {
    const MainModule& module = view.Module();
    const std::string target = IsUnsavedImage(module) ? module.CurrentImage : WorkingFileToWrite(module);
    try {
        view.MainImage.Picture = module.platform.pictures.Load(GetTempFolder(module) + UndoFile);
    } catch (const RuntimeError& error) {
        return error;
    }
    try {
        WriteMainImageTo(view, target);
    } catch (const RuntimeError& error) {
        SkipFailure([&] { view.MainImage.Picture = module.platform.pictures.Load(module.CurrentImage); });
        return error;
    }
    view.imageOnShow.Become(target);
    view.menu.mnuAnimatedGIF.Enabled = false;
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
    view.imageOnShow.LayOut();
    view.menu.mnuUndo.Caption = "Can't Undo";
    view.menu.mnuUndo.Enabled = false;
    module.DoEvents();
}

}  // namespace tavrix
