#include "platform/forms/Frame.h"

namespace tavrix::forms {

ControlPeer& Frame::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    framePeer_ = toolkit.CreateFrame(*this, container);
    framePeer_->SetText(Caption);
    return *framePeer_;
}

PixelInsets Frame::Border() const {
    return framePeer_ ? framePeer_->Border() : PixelInsets{};
}

void Frame::AssignCaption(const std::string& value) {
    if (!Caption.Store(value) || !framePeer_) return;
    framePeer_->SetText(value);
    ContentChanged();
}

}  // namespace tavrix::forms
