#include "platform/forms/Image.h"

#include <utility>

#include "platform/forms/Application.h"
#include "platform/forms/Form.h"
#include "platform/forms/Twips.h"

namespace tavrix::forms {

namespace {

constexpr int ArrivalInterval = 30;  ///< milliseconds

}  // namespace

Image::Image(Container& container, std::string name)
    : Control(container, std::move(name)), arrival_(OwnerForm()) {
    arrival_.Enabled = false;
    arrival_.Interval = ArrivalInterval;
    arrival_.OnTimer = [this] { LookAtArrival(); };
}

ControlPeer& Image::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    canvasPeer_ = toolkit.CreateCanvas(*this, container, *this);
    canvasPeer_->SetBounds(PixelBounds());
    canvasPeer_->SetSeeThrough(Picture.Get().Empty());
    return *canvasPeer_;
}

void Image::Handle(const Event& event) {
    if (const auto* mouse = std::get_if<MouseEvent>(&event)) {
        Raise(*mouse, OwnerForm().App().Screen().Info());
    } else if (std::holds_alternative<ClickEvent>(event)) {
        if (OnClick) OnClick();
    }
}

void Image::Resized() {
    fitted_.Reset();
    InvalidateAll();
}

CanvasView Image::View(int) const {
    CanvasView view;
    if (!Picture.Get().Empty()) {
        const ArrivingSurface& pixels = *Picture.Get().pixels;
        const PixelRect bounds = PixelBounds();
        const bool shrinks = FittedPixels::Shrinks(pixels.Width(), pixels.Height(), bounds);
        const int ready = shrinks ? pixels.RowsReady() : pixels.Height();
        const Surface& rows = pixels.Rows(ready);
        view = fitted_.View(rows, ready, bounds, Picture.Get().transparent || pixels.Damaged());
    }
    view.background = OwnerForm().BackColor;
    return view;
}

void Image::AssignPicture(const tavrix::Picture& value) {
    if (!Picture.Store(value)) return;
    fitted_.Reset();
    arrival_.Enabled = !value.Empty() && !value.pixels->Ended();
    rowsAwaited_ = arrival_.Enabled && value.pixels->RowsReady() == 0;
    if (canvasPeer_) canvasPeer_->SetSeeThrough(value.Empty());
    InvalidateAll();
    if (!Stretch) TakePictureSize();
}

void Image::AssignStretch(const bool& value) {
    if (Stretch.Store(value) && !value) TakePictureSize();
}

void Image::TakePictureSize() {
    const ScreenInfo screen = OwnerForm().App().Screen().Info();
    Move(Left, Top, ToTwips(Picture.Get().Width(), screen.twipsPerPixelX),
         ToTwips(Picture.Get().Height(), screen.twipsPerPixelY));
}

void Image::LookAtArrival() {
    // Asked before painting, so that the last rows are seen by the tick that ends this.
    const bool ended = Picture.Get().Empty() || Picture.Get().pixels->Ended();
    if (ended) arrival_.Enabled = false;
    InvalidateAll();
    const tavrix::Picture shown = Picture;  // a handler may take it away
    if (rowsAwaited_ && !shown.Empty() && shown.pixels->RowsReady() > 0 && !shown.pixels->Blank()) {
        rowsAwaited_ = false;
        if (OnFirstRows) OnFirstRows();
    }
    if (ended && OnArrived) OnArrived();
}

void Image::InvalidateAll() {
    if (!canvasPeer_) return;
    const PixelRect bounds = PixelBounds();
    canvasPeer_->Invalidate({0, 0, bounds.width, bounds.height});
}

}  // namespace tavrix::forms
