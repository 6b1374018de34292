#pragma once

#include <QKeyEvent>
#include <QScrollBar>

#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/SinkWidget.h"

namespace tavrix::qt {

class ScrollBarWidget final : public SinkWidget<QScrollBar> {
  public:
    ScrollBarWidget(QWidget& parent, const SinkPort& port, bool vertical);

    void Push(int min, int max, int smallChange, int largeChange);
    void PushValue(int value);
    /// The wheel turned by so many notches, which count against the value.
    void Turn(double notches);

  protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }

  private:
    bool pushing_ = false;
    int value_ = 0;      ///< as the logic has it, whatever the range
    double turned_ = 0;  ///< what the wheel left below a whole step
};

class QtScrollBar final : public QtControl<forms::ScrollBarPeer, ScrollBarWidget> {
  public:
    QtScrollBar(const SinkPort& port, const NativePeer& container, bool vertical)
        : QtControl(new ScrollBarWidget(*container.ControlParent(), port, vertical)) {}

    void SetRange(int min, int max, int smallChange, int largeChange) override {
        Get().Push(min, max, smallChange, largeChange);
    }
    void SetValue(int value) override { Get().PushValue(value); }
};

}  // namespace tavrix::qt
