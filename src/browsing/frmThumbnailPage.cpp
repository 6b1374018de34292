#include <cmath>
#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "browsing/frmThumbnail.h"

namespace tavrix {

void frmThumbnail::EnableChoices(bool enabled) {
    for (forms::CommandButton* button :
         {&CmdBack1, &CmdFwd1, &CmdNext, &CmdPrevious, &CmdSelect, &CmdBrowse, &CmdClose})
        button->Enabled = enabled;
}

void frmThumbnail::ShowPagingButtons(bool visible) {
    for (forms::CommandButton* button : {&CmdBack1, &CmdFwd1, &CmdNext, &CmdPrevious})
        button->Visible = visible;
}

void frmThumbnail::HideThumbnails() {
    for (std::size_t slot = 0; slot < Slots; ++slot) {
        picPreview[slot].Visible = false;
        picPreview[slot].Picture = Picture();
    }
}

int frmThumbnail::VisibleThumbnails() const {
    int visible = 1;
    while (visible < static_cast<int>(Slots) && picPreview[static_cast<std::size_t>(visible)].Visible)
        ++visible;
    return visible;
}

void frmThumbnail::ShowThumbnails(int start) {
    if (start > ThumbnailList::Most || start < 0) return;
    loading_ = true;
    forms::Control* const focus = ActiveControl();
    try {
        BeginPage();
        const PageEnd end = FillPage(start);
        if (end.canceled) {
            lblShowing.Caption = "Canceled...";
        } else {
            Pages.Made(end.reached, list_.ThumbnailCount());
            ShowPageNumbers(start);
        }
    } catch (...) {
        EndPage(focus);  // a window that stays locked could not even be closed
        throw;
    }
    EndPage(focus);
}

void frmThumbnail::BeginPage() {
    lblShowing.Caption = "Please wait...";
    CmdStop.Visible = true;
    CmdStop.Enabled = true;
    EnableChoices(false);
    module_.DoEvents();
    HideThumbnails();
    ThumbWidths.fill(0);
    ThumbHeights.fill(0);
    module_.DoEvents();
}

void frmThumbnail::EndPage(forms::Control* focus) {
    CmdStop.Visible = false;
    CmdStop.Enabled = true;
    EnableChoices(true);
    // A disabled button loses the keyboard, and whoever pages by it wants to go on.
    if (focus != nullptr && focus != &CmdStop && focus->Visible) focus->SetFocus();
    list_.ThumbnailsShown = true;
    loading_ = false;
}

frmThumbnail::PageEnd frmThumbnail::FillPage(int start) {
    const int count = list_.ThumbnailCount();
    int index = start;
    for (std::size_t slot = 0; index < count; ++index) {
        const std::string path = list_.ThumbnailFiles[static_cast<std::size_t>(index)];
        if (path.empty()) break;
        if (!FillSlot(slot, path)) return {index, true};
        if (!Wanted() || ++slot == Slots) break;
    }
    return {index, false};
}

bool frmThumbnail::FillSlot(std::size_t slot, const std::string& path) {
    FittedPicture fitted;
    std::optional<RuntimeError> failure;
    try {
        const auto pixels = [](int units, float twipsPerPixel) {
            return static_cast<int>(std::lround(static_cast<float>(units) * TwipsPerUnit / twipsPerPixel));
        };
        const forms::Screen& screen = module_.Screen();
        // The last column and row of an image have never been part of its thumbnail.
        const FitBox box{pixels(MostWidth, screen.TwipsPerPixelX()),
                         pixels(MostHeight, screen.TwipsPerPixelY()), 1};
        const auto arriving = module_.platform.pictures.LoadToFit(path, box);
        WaitFor(*arriving);
        if (!Wanted()) return true;
        fitted = arriving->Take();
    } catch (const RuntimeError& error) {
        failure = error;
    }
    if (failure && !GoesOnAfter(path, *failure)) return false;
    module_.DoEvents();
    if (!Wanted()) return true;
    ShowThumbnail(slot, path, fitted);
    module_.DoEvents();
    return true;
}

void frmThumbnail::WaitFor(const PictureToFit& picture) {
    TimerLoad.Enabled = true;
    App().GetToolkit().RunUntil([&] { return picture.Ended() || !Wanted(); });
    TimerLoad.Enabled = false;
}

void frmThumbnail::ShowThumbnail(std::size_t slot, const std::string& path, const FittedPicture& fitted) {
    forms::Image& preview = picPreview[slot];
    const forms::PictureBox& cell = picHoldPreview[slot];
    ThumbWidths[slot] = fitted.width;
    ThumbHeights[slot] = fitted.height;
    const bool blank = fitted.picture.Empty();
    preview.AccessibleName = FileNameOf(path);
    preview.Stretch = blank;
    preview.Picture = fitted.picture;
    if (blank) preview.Move(0, 0, MostWidth * TwipsPerUnit, MostHeight * TwipsPerUnit);
    const auto centred = [](float room, float size, float twipsPerPixel) {
        return std::trunc((room - size) / twipsPerPixel / 2) * twipsPerPixel;
    };
    const forms::Screen& screen = module_.Screen();
    preview.Left = centred(cell.ScaleWidth(), preview.Width, screen.TwipsPerPixelX());
    preview.Top = centred(cell.ScaleHeight(), preview.Height, screen.TwipsPerPixelY());
    preview.Visible = true;
}

void frmThumbnail::ShowPageNumbers(int start) {
    const std::string last = std::to_string(Pages.ThumbLastShown);
    const bool one = Pages.ThumbLastShown == start + 1;
    lblShowing.Caption = one ? last : std::to_string(start + 1) + " to " + last;
    lblShow.Caption = one ? "Showing Image:" : "Showing Images:";
}

bool frmThumbnail::GoesOnAfter(const std::string& path, const RuntimeError& error) {
    return App().MessageBox({.text = "Unable to show preview of the following image:" + std::string(NewLine) +
                                     "(" + error.Description() + "...)" + std::string(NewLine2) + path +
                                     std::string(NewLine2) + "Press \"Cancel\" to stop loading thumbnails...",
                             .icon = forms::BoxIcon::Exclamation,
                             .buttons = forms::BoxButtons::OkCancel}) == forms::Answer::Ok;
}

}  // namespace tavrix
