#pragma once

#include <QMouseEvent>
#include <QWidget>
#include <functional>

#include "backends/qt/peers/InputMap.h"
#include "backends/qt/peers/Scale.h"
#include "backends/qt/peers/SinkPort.h"

namespace tavrix::qt {

/// Hands a widget's mouse events to its sink. A release is told only where the press was.
class MouseRelay {
  public:
    explicit MouseRelay(SinkPort& port) : port_(port) {}

    /// Whether a click follows a press and a release of the left button inside.
    bool tellsClicks = true;
    /// What of the upper left corner of the widget, in device pixels, is not the control's.
    QPoint offset;
    /// Of a list: the row that an event is told with.
    std::function<int(const QMouseEvent& event)> rowFor;

    void Press(const QMouseEvent& event) {
        const int button = ButtonOf(event.button());
        if (button == 0) return;
        pressed_ |= button;
        port_.Deliver(Make(forms::MouseAction::Down, button, event));
    }
    /// The press is told in another way; its release is told.
    void PressUntold(const QMouseEvent& event) { pressed_ |= ButtonOf(event.button()); }
    void Move(const QMouseEvent& event) {
        port_.Deliver(Make(forms::MouseAction::Move, ButtonMaskOf(event.buttons()), event));
    }
    void Release(const QMouseEvent& event, const QWidget& widget) {
        const int button = ButtonOf(event.button());
        if ((pressed_ & button) == 0) return;
        pressed_ &= ~button;
        const bool click = tellsClicks && button == forms::MouseButton::Left &&
                           widget.rect().contains(event.position().toPoint());
        port_.Deliver(Make(forms::MouseAction::Up, button, event));
        if (click) port_.Deliver(forms::ClickEvent{});
    }

    /// A key takes the place of a press and a release of the button at a place of the widget.
    void PressFor(int button, QPoint place) {
        for (const auto action : {forms::MouseAction::Down, forms::MouseAction::Up}) {
            port_.Deliver(Make(action, button, forms::ShiftMask::None, place));
        }
    }

  private:
    [[nodiscard]] forms::MouseEvent Make(forms::MouseAction action, int button,
                                         const QMouseEvent& event) const {
        forms::MouseEvent told = Make(action, button, ShiftMaskOf(event.modifiers()), event.position());
        if (rowFor) told.row = rowFor(event);
        return told;
    }
    [[nodiscard]] forms::MouseEvent Make(forms::MouseAction action, int button, int shift, QPointF at) const {
        const double ratio = DeviceRatio();
        return {action, button, shift, static_cast<int>(std::floor(at.x() * ratio)) - offset.x(),
                static_cast<int>(std::floor(at.y() * ratio)) - offset.y()};
    }

    SinkPort& port_;
    int pressed_ = 0;
};

}  // namespace tavrix::qt
