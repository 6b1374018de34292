#include "platform/forms/ScrollBar.h"

#include <algorithm>
#include <cstdint>

#include "base/RuntimeError.h"

namespace tavrix::forms {

ControlPeer& ScrollBar::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    barPeer_ = toolkit.CreateScrollBar(*this, container, vertical_);
    PushRange();
    barPeer_->SetValue(Value);
    return *barPeer_;
}

void ScrollBar::Handle(const Event& event) {
    const auto* scroll = std::get_if<ScrollEvent>(&event);
    if (scroll == nullptr) return;
    Value.Store(std::clamp<int>(scroll->value, std::min<int>(Min, Max), std::max<int>(Min, Max)));
    if (scroll->tracking) {
        if (OnScroll) OnScroll();
    } else if (settled_ != Value) {
        settled_ = Value;
        if (OnChange) OnChange();
    }
}

void ScrollBar::KeyPressed(int& keyCode, int shift) {
    if (shift != ShiftMask::None) return;
    std::int64_t value = Value.Get();
    switch (keyCode) {
        case KeyCode::Left:
        case KeyCode::Up:
            value -= SmallChange.Get();
            break;
        case KeyCode::Right:
        case KeyCode::Down:
            value += SmallChange.Get();
            break;
        case KeyCode::PageUp:
            value -= LargeChange.Get();
            break;
        case KeyCode::PageDown:
            value += LargeChange.Get();
            break;
        case KeyCode::Home:
            value = Min;
            break;
        case KeyCode::End:
            value = Max;
            break;
        default:
            return;
    }
    keyCode = 0;
    const std::int64_t low = std::min<int>(Min, Max);
    const std::int64_t high = std::max<int>(Min, Max);
    Value = static_cast<int>(std::clamp(value, low, high));
}

void ScrollBar::AssignValue(const int& value) {
    if (value < std::min<int>(Min, Max) || value > std::max<int>(Min, Max)) {
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    }
    if (!Value.Store(value)) return;
    settled_ = value;
    if (barPeer_) barPeer_->SetValue(value);
    if (OnChange) OnChange();
}

void ScrollBar::AssignMin(const int& value) {
    if (Min.Store(value)) RangeChanged();
}

void ScrollBar::AssignMax(const int& value) {
    if (Max.Store(value)) RangeChanged();
}

void ScrollBar::AssignSmallChange(const int& value) {
    if (SmallChange.Store(value)) PushRange();
}

void ScrollBar::AssignLargeChange(const int& value) {
    if (LargeChange.Store(value)) PushRange();
}

void ScrollBar::RangeChanged() {
    PushRange();
    Value = std::clamp<int>(Value, std::min<int>(Min, Max), std::max<int>(Min, Max));
}

void ScrollBar::PushRange() {
    if (barPeer_) barPeer_->SetRange(Min, Max, SmallChange, LargeChange);
}

}  // namespace tavrix::forms
