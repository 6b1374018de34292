#include "backends/qt/peers/QtScrollBar.h"

#include <algorithm>

namespace tavrix::qt {

ScrollBarWidget::ScrollBarWidget(QWidget& parent, const SinkPort& port, bool vertical)
    : SinkWidget(port, vertical ? Qt::Vertical : Qt::Horizontal, &parent) {
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QScrollBar::valueChanged, this, [this](int value) {
        if (pushing_) return;
        value_ = value;
        Port().Deliver(forms::ScrollEvent{value, isSliderDown()});
    });
    connect(this, &QScrollBar::sliderReleased, this, [this] {
        Port().Deliver(forms::ScrollEvent{value(), false});
    });
}

void ScrollBarWidget::Push(int min, int max, int smallChange, int largeChange) {
    pushing_ = true;
    setRange(min, std::max(min, max));
    setSingleStep(smallChange);
    setPageStep(largeChange);
    setValue(value_);
    pushing_ = false;
}

void ScrollBarWidget::PushValue(int value) {
    value_ = value;
    pushing_ = true;
    setValue(value);
    pushing_ = false;
}

void ScrollBarWidget::Turn(double notches) {
    constexpr int StepsOfANotch = 3;
    turned_ -= notches * StepsOfANotch * singleStep();
    const int step = static_cast<int>(turned_);
    turned_ -= step;
    const int target = std::clamp(value() + step, minimum(), maximum());
    if (target == value()) return;
    PushValue(target);
    Port().Deliver(forms::ScrollEvent{target, false});
}

}  // namespace tavrix::qt
