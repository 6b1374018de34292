#pragma once

#include <QFocusEvent>
#include <QWidget>
#include <utility>

#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/SinkPort.h"

namespace tavrix::qt {

/// One of Qt's widgets that takes the keyboard, with its way to the sink of its peer.
template <class Base>
class SinkWidget : public Base {
  public:
    template <class... Arguments>
    explicit SinkWidget(const SinkPort& port, Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...), port_(port) {
        Base::setAttribute(Qt::WA_NoMousePropagation);
        Base::setVisible(false);
    }

    void Detach() { port_.Detach(); }

  protected:
    void focusInEvent(QFocusEvent* event) override {
        Base::focusInEvent(event);
        // The first control of a window that opens gets the keyboard with the activation.
        if (ByUser(event->reason()) || event->reason() == Qt::ActiveWindowFocusReason) {
            port_.Deliver(forms::FocusEvent{});
        }
    }

    [[nodiscard]] SinkPort& Port() { return port_; }

  private:
    SinkPort port_;
};

}  // namespace tavrix::qt
