#pragma once

#include <QImage>
#include <QPushButton>

#include "backends/qt/peers/MouseRelay.h"
#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/SinkWidget.h"

namespace tavrix::qt {

class ButtonWidget final : public SinkWidget<QPushButton> {
  public:
    ButtonWidget(QWidget& parent, const SinkPort& port);
    void SetPicture(const Surface* picture);

    [[nodiscard]] QSize sizeHint() const override;

    bool isCancel = false;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QImage picture_;
    MouseRelay mouse_{Port()};
};

class QtButton final : public QtControl<forms::ButtonPeer, ButtonWidget> {
  public:
    QtButton(const SinkPort& port, const NativePeer& container)
        : QtControl(new ButtonWidget(*container.ControlParent(), port)) {}

    void SetText(const std::string& text) override { Get().setText(QString::fromStdString(text)); }
    void SetPicture(const Surface* picture) override { Get().SetPicture(picture); }
    void SetRole(bool isDefault, bool isCancel) override {
        Get().setDefault(isDefault);
        Get().isCancel = isCancel;
    }
};

}  // namespace tavrix::qt
