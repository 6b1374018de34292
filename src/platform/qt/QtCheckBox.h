#pragma once

#include <QCheckBox>

#include "platform/qt/QtControl.h"
#include "platform/qt/SinkWidget.h"

namespace tavrix::qt {

class CheckWidget final : public SinkWidget<QCheckBox> {
  public:
    CheckWidget(QWidget& parent, const SinkPort& port);

  protected:
    bool event(QEvent* event) override;
};

class QtCheckBox final : public QtControl<forms::CheckPeer, CheckWidget> {
  public:
    QtCheckBox(const SinkPort& port, const NativePeer& container)
        : QtControl(new CheckWidget(*container.ControlParent(), port)) {}

    void SetText(const std::string& text) override { Get().setText(QString::fromStdString(text)); }
    void SetChecked(bool checked) override { Get().setChecked(checked); }
};

}  // namespace tavrix::qt
