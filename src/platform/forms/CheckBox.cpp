#include "platform/forms/CheckBox.h"

#include "platform/forms/Application.h"
#include "platform/forms/Form.h"

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
        Raise(*mouse, OwnerForm().App().Screen().Info());
    }
}

void CheckBox::AssignCaption(const std::string& value) {
    if (!Caption.Store(value) || !checkPeer_) return;
    checkPeer_->SetText(value);
    ContentChanged();
}

void CheckBox::AssignValue(const bool& value) {
    if (!Value.Store(value)) return;
    if (checkPeer_) checkPeer_->SetChecked(value);
    if (OnClick) OnClick();
}

}  // namespace tavrix::forms
