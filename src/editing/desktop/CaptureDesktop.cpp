#include "editing/desktop/CaptureDesktop.h"

#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "core/UnsavedImage.h"
#include "editing/frame/WorkingFile.h"
#include "editing/frame/WorkingImage.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr WorkingImageWords Words{.notRead = "Unable to create an image of the desktop window.",
                                  .notWritten = "Unable to write image of desktop to a temporary file."};

/// Whether the picture of the desktop is on show; what went wrong has been told otherwise.
bool Capture(MainViewFrm& view) {
    const MainModule& module = view.Module();
    try {
        view.Hide();
        module.DoEvents();
        view.MainImage.Width = module.Screen().Width();
        module.DoEvents();
        view.MainImage.Height = module.Screen().Height();
        module.DoEvents();
        std::optional<Surface> desktop = module.platform.desktop.Capture();
        if (!desktop) {
            EndWithoutImage(view, "Unable to capture desktop window...");
            return false;
        }
        // A desktop of several displays is larger than the screen: the image takes the size of what was captured.
        view.MainImage.Picture = PictureOf(std::move(*desktop));
        module.DoEvents();
    } catch (const RuntimeError& error) {
        EndWithoutImage(view, Words.notRead, error);
        return false;
    }
    return true;
}

}  // namespace

void mnuCaptureDesktop_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy() || !ConfirmDiscard(module)) return;
    const forms::BusyGuard busy(module.Screen());
    const bool captured = Capture(view);
    // After a failure too: a program without a window could not be used any more.
    view.Show();
    if (!captured) return;
    module.DoEvents();
    view.imageOnShow.LayOut();
    KeepWorkingImage(view, Words);
}

}  // namespace tavrix
