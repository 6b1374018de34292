#include "backends/qt/peers/QtLabel.h"

#include <QPainter>
#include <QStyle>

#include "backends/qt/peers/Mnemonics.h"

namespace tavrix::qt {

LabelWidget::LabelWidget(QWidget& parent, const SinkPort& port) : QLabel(&parent), port_(port) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setAttribute(Qt::WA_NoMousePropagation);
    setVisible(false);
}

void LabelWidget::paintEvent(QPaintEvent* event) {
    const bool fits = wordWrap() || fontMetrics().horizontalAdvance(text()) <= contentsRect().width();
    if (fits || buddy() != nullptr || text().contains(QLatin1Char('\n'))) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                          shown, foregroundRole());
}

void QtLabel::SetBounds(const PixelRect& bounds) {
    Get().setWordWrap(true);  // without a layout the text has to keep within the label
    QtControl::SetBounds(bounds);
}

void QtLabel::SetText(const std::string& text) {
    caption_ = QString::fromStdString(text).remove(QLatin1Char('\r'));
    Show();
}

void QtLabel::SetBuddy(forms::ControlPeer& buddy) {
    Get().setBuddy(NativeOf(buddy).Native());
    Get().setAlignment(Qt::AlignLeft | Qt::AlignVCenter);  // as the text of the control beside it
    Show();
}

void QtLabel::Show() {
    QWidget* buddy = Get().buddy();
    const QString plain = WithoutMarks(caption_);
    // Qt marks mnemonics only in labels that have a buddy.
    Get().setText(buddy != nullptr ? caption_ : plain);
    if (buddy == nullptr) return;
    // Not every kind of control is called by its label without being told. A name that the program gave stays.
    if (buddy->accessibleName() == toldName_) buddy->setAccessibleName(plain);
    toldName_ = plain;
}

}  // namespace tavrix::qt
