#include "platform/forms/CommandButton.h"

#include "platform/forms/Application.h"
#include "platform/forms/Form.h"

namespace tavrix::forms {

ControlPeer& CommandButton::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    buttonPeer_ = toolkit.CreateButton(*this, container);
    buttonPeer_->SetText(Caption);
    if (!Picture.Get().Empty()) PushPicture();
    buttonPeer_->SetRole(Default, Cancel);
    return *buttonPeer_;
}

void CommandButton::Handle(const Event& event) {
    if (!Enabled) return;
    if (std::holds_alternative<ClickEvent>(event)) {
        if (OnClick) OnClick();
    } else if (const auto* mouse = std::get_if<MouseEvent>(&event)) {
        Raise(*mouse, OwnerForm().App().Screen().Info());
    }
}

void CommandButton::AssignCaption(const std::string& value) {
    if (!Caption.Store(value) || !buttonPeer_) return;
    buttonPeer_->SetText(value);
    ContentChanged();
}

void CommandButton::AssignPicture(const tavrix::Picture& value) {
    if (!Picture.Store(value) || !buttonPeer_) return;
    PushPicture();
    ContentChanged();
}

void CommandButton::PushPicture() {
    buttonPeer_->SetPicture(Picture.Get().Empty() ? nullptr : &Picture.Get().pixels->Whole());
}

void CommandButton::AssignDefault(const bool& value) {
    if (Default.Store(value) && buttonPeer_) buttonPeer_->SetRole(Default, Cancel);
}

void CommandButton::AssignCancel(const bool& value) {
    if (Cancel.Store(value) && buttonPeer_) buttonPeer_->SetRole(Default, Cancel);
}

}  // namespace tavrix::forms
