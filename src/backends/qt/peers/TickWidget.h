#pragma once

#include <QAbstractButton>
#include <QMouseEvent>

#include "backends/qt/peers/LetterPress.h"
#include "backends/qt/peers/MouseRelay.h"
#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/SinkWidget.h"

namespace tavrix::qt {

/// A check box or an option button: one of Qt's buttons that is ticked or not.
template <class Button>
class TickWidget : public SinkWidget<Button> {
  public:
    TickWidget(QWidget& parent, const SinkPort& port) : SinkWidget<Button>(port, &parent) {
        mouse_.tellsClicks = false;
        this->setMouseTracking(true);
        QObject::connect(this, &QAbstractButton::clicked, this,
                         [this](bool checked) { this->Port().Deliver(forms::CheckEvent{checked}); });
    }

  protected:
    bool event(QEvent* event) override {
        // It gives the focus too, and Qt would not tell that the user did it.
        if (IsLetterPress(*event)) {
            this->setFocus(Qt::ShortcutFocusReason);
            this->click();
            return true;
        }
        return SinkWidget<Button>::event(event);
    }
    void mousePressEvent(QMouseEvent* event) override {
        Button::mousePressEvent(event);
        mouse_.Press(*event);
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        Button::mouseMoveEvent(event);
        mouse_.Move(*event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        Button::mouseReleaseEvent(event);
        mouse_.Release(*event, *this);
    }

  private:
    MouseRelay mouse_{this->Port()};
};

/// The peer of such a button.
template <class Interface, class Widget>
class QtTick : public QtControl<Interface, Widget> {
  public:
    QtTick(const SinkPort& port, const NativePeer& container)
        : QtControl<Interface, Widget>(new Widget(*container.ControlParent(), port)) {}

    void SetText(const std::string& text) override { this->Get().setText(QString::fromStdString(text)); }
    void SetChecked(bool checked) override { this->Get().setChecked(checked); }
};

}  // namespace tavrix::qt
