#include "platform/forms/PictureBox.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "imaging/graphics/Draw.h"
#include "platform/forms/Application.h"
#include "platform/forms/Form.h"
#include "platform/forms/Twips.h"

namespace tavrix::forms {

PictureBox::PictureBox(Container& container, std::string name) : Control(container, std::move(name)) {}

ControlPeer& PictureBox::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    canvasPeer_ = toolkit.CreateCanvas(*this, container, *this);
    if (!printed_.empty()) canvasPeer_->SetPrinted(printed_);
    canvasPeer_->SetSeeThrough(SeeThrough);
    return *canvasPeer_;
}

void PictureBox::RealizeContent(Toolkit& toolkit) {
    RealizeControls(toolkit, *canvasPeer_);
}

void PictureBox::Handle(const Event& event) {
    if (const auto* mouse = std::get_if<MouseEvent>(&event)) {
        Raise(*mouse, OwnerForm().App().Screen().Info());
    } else if (std::holds_alternative<ClickEvent>(event)) {
        if (OnClick) OnClick();
    }
}

void PictureBox::Resized() {
    if (bitmap_) bitmap_ = std::make_shared<ArrivingSurface>(Compose());
    InvalidateAll();
    if (OnResize) OnResize();
}

CanvasView PictureBox::View(int bottom) const {
    CanvasView view;
    view.background = BackColor;
    if (bitmap_) {
        view.pixels = &bitmap_->Whole();
    } else if (!Picture.Get().Empty()) {
        const ArrivingSurface& pixels = *Picture.Get().pixels;
        view.pixels = &pixels.Rows(std::clamp(bottom, 0, pixels.Height()));
        view.transparent = Picture.Get().transparent || pixels.Damaged();
    }
    if (view.pixels != nullptr) view.place = {0, 0, view.pixels->Width(), view.pixels->Height()};
    return view;
}

tavrix::Picture PictureBox::Image() const {
    const tavrix::Picture& picture = Picture;
    const PixelRect bounds = PixelBounds();
    const bool plain = !bitmap_ && !picture.Empty() && !picture.transparent &&
                       picture.Width() == bounds.width && picture.Height() == bounds.height;
    const Outcome ending = picture.Empty() ? Outcome::Complete : picture.pixels->Ending();
    if (ending == Outcome::Unread) throw RuntimeError(ErrorNumber::PathFileAccessError);
    if (plain && ending == Outcome::Complete) return picture;
    if (bounds.width == 0 || bounds.height == 0) return {};
    if (!bitmap_) return PictureOf(Compose());
    tavrix::Picture snapshot;
    snapshot.pixels = bitmap_;
    return snapshot;
}

Surface& PictureBox::Bitmap() {
    if (!bitmap_) {
        bitmap_ = std::make_shared<ArrivingSurface>(Compose());
    } else if (bitmap_.use_count() > 1) {
        bitmap_ = std::make_shared<ArrivingSurface>(bitmap_->Whole().Clone());
    }
    return bitmap_->Canvas();
}

Surface PictureBox::Compose() const {
    const PixelRect bounds = PixelBounds();
    Surface whole(bounds.width, bounds.height);
    whole.Fill(ToPixel(BackColor));
    if (!Picture.Get().Empty()) DrawOver(whole, 0, 0, Picture.Get().pixels->Whole());
    if (bitmap_) DrawOver(whole, 0, 0, bitmap_->Whole());
    return whole;
}

void PictureBox::Cls() {
    bitmap_.reset();
    ClearPrinted();
    ++timesWiped_;
    InvalidateAll();
}

void PictureBox::Print(const std::string& line) {
    printed_.push_back(line);
    if (canvasPeer_) canvasPeer_->SetPrinted(printed_);
}

void PictureBox::ClearPrinted() {
    if (printed_.empty()) return;
    printed_.clear();
    if (canvasPeer_) canvasPeer_->SetPrinted(printed_);
}

void PictureBox::Refresh() {
    if (!canvasPeer_) return;
    InvalidateAll();
    canvasPeer_->PaintNow();
}

void PictureBox::AssignPicture(const tavrix::Picture& value) {
    bitmap_.reset();
    ClearPrinted();
    ++timesWiped_;
    Picture.Store(value);
    InvalidateAll();
    if (AutoSize) TakePictureSize();
}

void PictureBox::AssignAutoSize(const bool& value) {
    if (AutoSize.Store(value) && value) TakePictureSize();
}

void PictureBox::AssignBackColor(const Colour& value) {
    if (!BackColor.Store(value)) return;
    InvalidateAll();
}

void PictureBox::AssignSeeThrough(const bool& value) {
    if (SeeThrough.Store(value) && canvasPeer_) canvasPeer_->SetSeeThrough(value);
}

void PictureBox::TakePictureSize() {
    if (Picture.Get().Empty()) return;
    const ScreenInfo screen = OwnerForm().App().Screen().Info();
    Move(Left, Top, ToTwips(Picture.Get().Width(), screen.twipsPerPixelX),
         ToTwips(Picture.Get().Height(), screen.twipsPerPixelY));
}

void PictureBox::InvalidateAll() {
    if (!canvasPeer_) return;
    const PixelRect bounds = PixelBounds();
    canvasPeer_->Invalidate({0, 0, bounds.width, bounds.height});
}

}  // namespace tavrix::forms
