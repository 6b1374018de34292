#pragma once

#include <QRadioButton>

#include "backends/qt/peers/TickWidget.h"

namespace tavrix::qt {

class OptionWidget final : public TickWidget<QRadioButton> {
  public:
    OptionWidget(QWidget& parent, const SinkPort& port) : TickWidget(parent, port) {
        setAutoExclusive(false);  // forms know the group, which a frame around some of it would split
    }

  protected:
    void nextCheckState() override { setChecked(true); }
};

class QtOptionButton final : public QtTick<forms::OptionPeer, OptionWidget> {
  public:
    using QtTick::QtTick;

    void SetTabStop(bool stops) override { Get().setFocusPolicy(stops ? Qt::StrongFocus : Qt::ClickFocus); }
};

}  // namespace tavrix::qt
