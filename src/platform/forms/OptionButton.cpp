#include "platform/forms/OptionButton.h"

#include <algorithm>
#include <utility>

namespace tavrix::forms {

OptionButton::OptionButton(Container& container, std::string name, OptionGroup& group)
    : Control(container, std::move(name)), group_(group) {
    group_.buttons_.push_back(this);
}

ControlPeer& OptionButton::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    optionPeer_ = toolkit.CreateOptionButton(*this, container);
    optionPeer_->SetText(Caption);
    optionPeer_->SetChecked(Value);
    PushTabStops();
    return *optionPeer_;
}

void OptionButton::Handle(const Event& event) {
    const auto* check = std::get_if<CheckEvent>(&event);
    if (check == nullptr || !check->checked || !Enabled) return;
    if (Value.Store(true)) TakeChoice();
}

void OptionButton::KeyPressed(int& keyCode, int shift) {
    const bool forward = keyCode == KeyCode::Right || keyCode == KeyCode::Down;
    const bool back = keyCode == KeyCode::Left || keyCode == KeyCode::Up;
    if (shift != ShiftMask::None || (!forward && !back)) return;
    keyCode = 0;
    OptionButton& next = Neighbour(forward);
    next.SetFocus();
    next.Value = true;
}

void OptionButton::AssignCaption(const std::string& value) {
    if (!Caption.Store(value) || !optionPeer_) return;
    optionPeer_->SetText(value);
    ContentChanged();
}

void OptionButton::AssignValue(const bool& value) {
    if (!Value.Store(value)) return;
    if (optionPeer_) optionPeer_->SetChecked(value);
    if (value) {
        TakeChoice();
    } else {
        PushTabStops();
    }
}

void OptionButton::TakeChoice() {
    for (OptionButton* other : group_.buttons_) {
        if (other != this && other->Value.Store(false) && other->optionPeer_)
            other->optionPeer_->SetChecked(false);
    }
    PushTabStops();
    if (OnClick) OnClick();
}

OptionButton& OptionButton::Neighbour(bool forward) const {
    const auto& buttons = group_.buttons_;
    const std::size_t count = buttons.size();
    const auto self = static_cast<std::size_t>(std::ranges::find(buttons, this) - buttons.begin());
    std::size_t at = self;
    do {
        at = (at + (forward ? 1 : count - 1)) % count;
    } while (at != self && !(buttons[at]->Enabled && buttons[at]->Visible));
    return *buttons[at];
}

void OptionButton::PushTabStops() const {
    const auto& buttons = group_.buttons_;
    auto stop = std::ranges::find_if(buttons, [](const OptionButton* button) { return button->Value.Get(); });
    if (stop == buttons.end()) stop = buttons.begin();
    for (const OptionButton* button : buttons) {
        if (button->optionPeer_) button->optionPeer_->SetTabStop(button == *stop);
    }
}

}  // namespace tavrix::forms
