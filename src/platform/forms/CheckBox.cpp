#include "platform/forms/CheckBox.h"

namespace tavrix::forms {

ControlPeer& CheckBox::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    checkPeer_ = toolkit.CreateCheckBox(*this, container);
    checkPeer_->SetText(Caption);
    checkPeer_->SetChecked(Value);
    return *checkPeer_;
}

void CheckBox::Handle(const Event& event) {
    const auto* check = std::get_if<CheckEvent>(&event);
    if (check == nullptr || !Enabled) return;
    if (Value.Store(check->checked) && OnClick) OnClick();
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
