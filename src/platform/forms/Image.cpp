#include "platform/forms/Image.h"

#include "platform/forms/Application.h"
#include "platform/forms/Form.h"
#include "platform/forms/Twips.h"

namespace tavrix::forms {

ControlPeer& Image::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    canvasPeer_ = toolkit.CreateCanvas(*this, container, *this);
    canvasPeer_->SetBounds(PixelBounds());
    return *canvasPeer_;
}

void Image::Handle(const Event& event) {
    if (std::holds_alternative<ClickEvent>(event) && OnClick) OnClick();
}

void Image::Resized() {
    InvalidateAll();
}

CanvasView Image::View(int) const {
    CanvasView view;
    view.background = ButtonFace;
    if (Picture.Get().Empty()) return view;
    view.pixels = &Picture.Get().pixels->Whole();
    view.transparent = Picture.Get().transparent || Picture.Get().pixels->Damaged();
    const PixelRect bounds = PixelBounds();
    view.place = {0, 0, bounds.width, bounds.height};
    return view;
}

void Image::AssignPicture(const tavrix::Picture& value) {
    if (!Picture.Store(value)) return;
    InvalidateAll();
    if (!Stretch) TakePictureSize();
}

void Image::AssignStretch(const bool& value) {
    if (Stretch.Store(value) && !value) TakePictureSize();
}

void Image::TakePictureSize() {
    const ScreenInfo screen = OwnerForm().App().GetToolkit().Screen();
    Move(Left, Top, ToTwips(Picture.Get().Width(), screen.twipsPerPixelX),
         ToTwips(Picture.Get().Height(), screen.twipsPerPixelY));
}

void Image::InvalidateAll() {
    if (!canvasPeer_) return;
    const PixelRect bounds = PixelBounds();
    canvasPeer_->Invalidate({0, 0, bounds.width, bounds.height});
}

}  // namespace tavrix::forms
