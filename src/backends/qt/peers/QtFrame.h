#pragma once

#include <QGroupBox>

#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/SinkWidget.h"

namespace tavrix::qt {

class FrameWidget final : public SinkWidget<QGroupBox> {
  public:
    FrameWidget(QWidget& parent, const SinkPort& port) : SinkWidget(port, &parent) {}
};

class QtFrame final : public QtControl<forms::FramePeer, FrameWidget> {
  public:
    QtFrame(const SinkPort& port, const NativePeer& container)
        : QtControl(new FrameWidget(*container.ControlParent(), port)) {}

    void SetText(const std::string& text) override { Get().setTitle(QString::fromStdString(text)); }
    [[nodiscard]] forms::PixelInsets Border() const override;
    [[nodiscard]] forms::PixelSize NaturalSize() const override;
};

}  // namespace tavrix::qt
