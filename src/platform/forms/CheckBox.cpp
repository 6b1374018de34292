#include "platform/forms/CheckBox.h"

namespace tavrix::forms {

ControlPeer& CheckBox::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    checkPeer_ = toolkit.CreateCheckBox(*this, container);
    checkPeer_->SetText(Caption);
    checkPeer_->SetChecked(Value);
    return *checkPeer_;
}

void CheckBox::Handle(const Event& event) {
    if (!Enabled) return;
    if (const auto* check = std::get_if<CheckEvent>(&event)) {
        if (Value.Store(check->checked) && OnClick) OnClick();
    } else if (const auto* mouse = std::get_if<MouseEvent>(&event)) {
        if (mouse->action == MouseAction::Up && OnMouseUp) OnMouseUp(*mouse);
    }
}

void CheckBox::AssignCaption(const std::string& value) {
    if (Caption.Store(value) && checkPeer_) checkPeer_->SetText(value);
}

void CheckBox::AssignValue(const bool& value) {
    if (!Value.Store(value)) return;
    if (checkPeer_) checkPeer_->SetChecked(value);
    if (OnClick) OnClick();
}

}  // namespace tavrix::forms
