#include "editing/clipboard/Paste.h"

#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "editing/clipboard/SelectedArea.h"
#include "editing/creating/CentreCopy.h"
#include "editing/frame/EditFrame.h"
#include "editing/frame/ScratchPicture.h"
#include "editing/frame/WorkingFile.h"
#include "editing/resizing/StretchCopy.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

using forms::Answer;

constexpr EditWords Words{.undo = "&Undo Paste",
                          .notWritten = "Unable to write clipboard data to a temporary file."};

enum class Fit { Stretched, Cut };

void TakeClipboardToPictureTemp(MainViewFrm& view) {
    view.picFrame.Visible = false;
    view.PictureTemp.Picture = view.Module().platform.clipboard.Get();
    view.Module().DoEvents();
}

void PasteIntoSelection(MainViewFrm& view, Fit fit) {
    const forms::ScreenInfo screen = view.App().Screen().Info();
    const float pixelX = screen.twipsPerPixelX;
    const float pixelY = screen.twipsPerPixelY;
    const SelectedArea area(view.selection);
    view.selection.Drop();
    TakeClipboardToPictureTemp(view);
    const float width = area.Right - area.Left - pixelX;
    const float height = area.Bottom - area.Top - pixelY;
    const bool stretched = fit == Fit::Stretched;
    const float sourceWidth = stretched ? view.PictureTemp.Width - pixelX : width - pixelX;
    const float sourceHeight = stretched ? view.PictureTemp.Height - pixelY : height - pixelY;
    StretchCopy(view.MainImage.Bitmap(), area.Left + pixelX, area.Top + pixelY, width, height,
                PixelsOfPictureTemp(view), 0, 0, sourceWidth, sourceHeight, screen);
    view.MainImage.Refresh();
}

void PasteOntoImage(MainViewFrm& view) {
    TakeClipboardToPictureTemp(view);
    if (view.MainImage.Width < view.PictureTemp.Width || view.MainImage.Height < view.PictureTemp.Height) {
        view.MainImage.Picture = view.PictureTemp.Picture;
    } else {
        CopyToCentre(view.MainImage, PixelsOfPictureTemp(view), view.App().Screen().Info());
    }
}

Answer AskWhetherToStretch(const MainViewFrm& view) {
    return view.App().MessageBox({.text = "Stretch clipboard data to fit the selected area?",
                                  .icon = forms::BoxIcon::Question,
                                  .buttons = forms::BoxButtons::YesNoCancel});
}

/// The failure where there is one.
std::optional<RuntimeError> BringClipboard(MainViewFrm& view, std::optional<Fit> fit) {
    const MainModule& module = view.Module();
    try {
        if (fit) {
            PasteIntoSelection(view, *fit);
        } else {
            PasteOntoImage(view);
        }
        module.DoEvents();
        ClearPictureTemp(view);
        view.imageOnShow.LayOut();
        view.picFrame.Visible = true;
        module.DoEvents();
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

EditResult Paste(MainViewFrm& view) {
    std::optional<Fit> fit;
    if (view.selection.SelectionShown) {
        const Answer answer = AskWhetherToStretch(view);
        if (answer == Answer::Cancel) return EditResult::Refused;
        fit = answer == Answer::Yes ? Fit::Stretched : Fit::Cut;
    }
    if (const auto error = BringClipboard(view, fit)) {
        EndWithoutImage(view, "Unable to get image from the clipboard.", *error);
        return EditResult::Refused;
    }
    return EditResult::Made;
}

}  // namespace

void mnuPaste_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    if (!HoldsPicture(module.platform.clipboard)) {
        view.App().MessageBox({.text = "There is nothing to paste." + std::string(NewLine2) +
                                       "An image has not been copied to the clipboard yet..."});
        return;
    }
    EditFrame(view, Words).Run([&] { return Paste(view); });
}

}  // namespace tavrix
