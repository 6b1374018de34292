#include "viewer/FullScreenCorner.h"

#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr int WatchInterval = 200;  ///< milliseconds

}  // namespace

FullScreenCorner::FullScreenCorner(MainViewFrm& view) : view_(view), watch_(view) {
    watch_.Enabled = false;
    watch_.Interval = WatchInterval;
    watch_.OnTimer = [this] { Look(); };
}

bool FullScreenCorner::CoversImage() const {
    return !view_.hsbPict.Visible && !view_.vsbPict.Visible &&
           view_.picFrame.Width > view_.CmdFullScreen.Left && view_.picFrame.Height > view_.CmdFullScreen.Top;
}

bool FullScreenCorner::HasKeyboard() const {
    return view_.ActiveControl() == &view_.CmdFullScreen;
}

bool FullScreenCorner::IsInCorner(float x, float y) const {
    const forms::CommandButton& button = view_.CmdFullScreen;
    return x >= button.Left && y >= button.Top && x < button.Left + button.Width &&
           y < button.Top + button.Height;
}

void FullScreenCorner::SetWanted(bool wanted) {
    wanted_ = wanted;
    Update();
}

void FullScreenCorner::Update() {
    const bool covers = CoversImage();
    if (!wanted_ || !covers) pointed_ = false;
    const bool shown = wanted_ && (!covers || pointed_ || HasKeyboard());
    view_.CmdFullScreen.Visible = shown;
    watch_.Enabled = shown && covers;
}

void FullScreenCorner::PointAt(const forms::MouseArguments& mouse) {
    if (!wanted_ || !CoversImage()) return;
    // With Shift or a button down the corner belongs to the selection.
    const bool free = mouse.button == 0 && mouse.shift == forms::ShiftMask::None;
    pointed_ = free && IsInCorner(mouse.x, mouse.y);
    if (pointed_) {
        seenAt_ = view_.Module().Screen().PointerPlace();
        seenX_ = mouse.x;
        seenY_ = mouse.y;
    }
    Update();
}

void FullScreenCorner::Look() {
    if (pointed_) {
        const forms::Screen& screen = view_.Module().Screen();
        const forms::ScreenPoint now = screen.PointerPlace();
        pointed_ = IsInCorner(seenX_ + static_cast<float>(now.x - seenAt_.x) * screen.TwipsPerPixelX(),
                              seenY_ + static_cast<float>(now.y - seenAt_.y) * screen.TwipsPerPixelY());
    }
    Update();
}

bool FullScreenCorner::StepByTab() {
    if (!wanted_ || !CoversImage()) return false;
    if (HasKeyboard()) {
        view_.PictureTemp.SetFocus();
    } else {
        view_.CmdFullScreen.Visible = true;
        view_.CmdFullScreen.SetFocus();
    }
    Update();
    return true;
}

}  // namespace tavrix
