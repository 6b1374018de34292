#include "platform/qt/QtButton.h"

#include <QFocusEvent>
#include <QMouseEvent>

namespace tavrix::qt {

ButtonWidget::ButtonWidget(QWidget& parent, const SinkPort& port) : QPushButton(&parent), port_(port) {
    setAutoDefault(false);
    setAttribute(Qt::WA_NoMousePropagation);
    setVisible(false);
    mouse_.tellsClicks = false;
    connect(this, &QPushButton::clicked, this, [this] { port_.Deliver(forms::ClickEvent{}); });
}

void ButtonWidget::mousePressEvent(QMouseEvent* event) {
    QPushButton::mousePressEvent(event);
    mouse_.Press(*event);
}

void ButtonWidget::mouseMoveEvent(QMouseEvent* event) {
    QPushButton::mouseMoveEvent(event);
    mouse_.Move(*event);
}

void ButtonWidget::mouseReleaseEvent(QMouseEvent* event) {
    QPushButton::mouseReleaseEvent(event);
    mouse_.Release(*event, *this);
}

void ButtonWidget::focusInEvent(QFocusEvent* event) {
    QPushButton::focusInEvent(event);
    if (ByUser(event->reason())) port_.Deliver(forms::FocusEvent{});
}

}  // namespace tavrix::qt
