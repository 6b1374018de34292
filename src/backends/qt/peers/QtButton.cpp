#include "backends/qt/peers/QtButton.h"

#include <QMouseEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "backends/qt/peers/LetterPress.h"
#include "backends/qt/peers/SurfaceImage.h"

namespace tavrix::qt {

ButtonWidget::ButtonWidget(QWidget& parent, const SinkPort& port) : SinkWidget(port, &parent) {
    setAutoDefault(false);
    setMouseTracking(true);
    mouse_.tellsClicks = false;
    connect(this, &QPushButton::clicked, this, [this] { Port().Deliver(forms::ClickEvent{}); });
}

void ButtonWidget::SetPicture(const Surface* picture) {
    picture_ = picture != nullptr ? ImageOf(*picture) : QImage();
    updateGeometry();
    update();
}

QSize ButtonWidget::sizeHint() const {
    const QSize forText = QPushButton::sizeHint();
    if (picture_.isNull()) return forText;
    const int air = 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth) +
                    style()->pixelMetric(QStyle::PM_ButtonMargin);
    const QSize forPicture = (QSizeF(picture_.size()) / devicePixelRatioF()).toSize() + QSize(air, air);
    return {forPicture.width(), std::max(forPicture.height(), forText.height())};
}

bool ButtonWidget::event(QEvent* event) {
    if (IsLetterPress(*event)) {
        click();
        return true;
    }
    return SinkWidget::event(event);
}

void ButtonWidget::paintEvent(QPaintEvent* event) {
    if (picture_.isNull()) {
        QPushButton::paintEvent(event);
        return;
    }
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    QStylePainter painter(this);
    painter.drawControl(QStyle::CE_PushButton, option);
    const QSizeF size = QSizeF(picture_.size()) / devicePixelRatioF();
    painter.drawImage(QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size),
                      picture_);
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

void ButtonWidget::keyPressEvent(QKeyEvent* event) {
    const bool asksForMenu = event->key() == Qt::Key_Menu ||
                             (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
    if (asksForMenu) {
        mouse_.PressFor(forms::MouseButton::Right, rect().center());
    } else {
        SinkWidget::keyPressEvent(event);
    }
}

}  // namespace tavrix::qt
