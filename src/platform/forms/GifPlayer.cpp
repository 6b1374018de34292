#include "platform/forms/GifPlayer.h"

#include <utility>

#include "platform/forms/Application.h"
#include "platform/forms/Form.h"
#include "platform/forms/Twips.h"

namespace tavrix::forms {

GifPlayer::GifPlayer(Container& container, std::string name, Pictures& pictures)
    : Control(container, std::move(name)), pictures_(pictures), frame_(OwnerForm()) {
    frame_.Enabled = false;
    frame_.OnTimer = [this] { ShowNextFrame(); };
}

ControlPeer& GifPlayer::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    canvasPeer_ = toolkit.CreateCanvas(*this, container, *this);
    Play();
    return *canvasPeer_;
}

void GifPlayer::Resized() {
    fitted_.Reset();
    InvalidateAll();
}

CanvasView GifPlayer::View(int) const {
    CanvasView view;
    if (animation_) {
        const Surface& canvas = animation_->Canvas();
        view = fitted_.View(canvas, canvas.Height(), PixelBounds(), animation_->Transparent());
    }
    view.background = OwnerForm().BackColor;
    return view;
}

void GifPlayer::AssignFileName(const std::string& value) {
    FileName.Store({});
    frame_.Enabled = false;
    animation_.reset();
    fitted_.Reset();
    InvalidateAll();
    if (value.empty()) return;
    animation_ = pictures_.OpenAnimation(value);
    FileName.Store(value);
    TakeNaturalSize();
    if (canvasPeer_) Play();
}

void GifPlayer::TakeNaturalSize() {
    const ScreenInfo screen = OwnerForm().App().Screen().Info();
    const Surface& canvas = animation_->Canvas();
    Move(Left, Top, ToTwips(canvas.Width(), screen.twipsPerPixelX),
         ToTwips(canvas.Height(), screen.twipsPerPixelY));
}

void GifPlayer::Play() {
    if (!animation_) return;
    frame_.Interval = static_cast<int>(animation_->Stay().count());
    frame_.Enabled = true;
}

void GifPlayer::ShowNextFrame() {
    if (!animation_->Next()) {
        frame_.Enabled = false;
        return;
    }
    const int stay = static_cast<int>(animation_->Stay().count());
    if (stay != frame_.Interval) frame_.Interval = stay;
    fitted_.Reset();
    InvalidateAll();
}

void GifPlayer::InvalidateAll() {
    if (!canvasPeer_) return;
    const PixelRect bounds = PixelBounds();
    canvasPeer_->Invalidate({0, 0, bounds.width, bounds.height});
}

}  // namespace tavrix::forms
