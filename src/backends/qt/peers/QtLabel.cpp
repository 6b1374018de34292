#include "backends/qt/peers/QtLabel.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include "backends/qt/peers/Colours.h"
#include "backends/qt/peers/Contrast.h"
#include "backends/qt/peers/FittedText.h"
#include "backends/qt/peers/Mnemonics.h"
#include "backends/qt/peers/WindowWidget.h"

namespace tavrix::qt {

LabelWidget::LabelWidget(QWidget& parent, const SinkPort& port) : QLabel(&parent), port_(port) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setAttribute(Qt::WA_NoMousePropagation);
    setMouseTracking(true);
    setVisible(false);
}

bool LabelWidget::FitsWrapped() const {
    const QRect room = contentsRect();
    const QRect needed =
        fontMetrics().boundingRect(QRect(0, 0, room.width(), 0), Qt::TextWordWrap | Qt::AlignLeft, text());
    return needed.width() <= room.width() && needed.height() <= room.height();
}

void LabelWidget::paintEvent(QPaintEvent* event) {
    if (wordWrap() && buddy() == nullptr && !FitsWrapped()) {
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        FittedText(text(), font(), contentsRect().size()).Draw(painter, contentsRect().topLeft());
        return;
    }
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

void QtLabel::SetBackColor(std::optional<Colour> colour) {
    LabelWidget& label = Get();
    label.setAutoFillBackground(colour.has_value());
    if (!colour || *colour == ButtonFace) {  // which follows the theme
        label.setPalette(QPalette());
        return;
    }
    QPalette palette = label.palette();
    const QColor below = ToQColor(*colour, QApplication::palette());
    palette.setColor(QPalette::Window, below);
    palette.setColor(QPalette::WindowText, TextColourOn(below));
    label.setPalette(palette);
}

forms::PixelSize QtLabel::NaturalSize() const {
    LabelWidget& label = Get();
    const auto* window = dynamic_cast<const WindowWidget*>(label.window());
    if (window != nullptr && window->measuredLater) return {};
    label.ensurePolished();
    // A label that breaks its lines would answer with a shape that looks well.
    const bool wraps = label.wordWrap();
    label.setWordWrap(false);
    const QSize whole = label.sizeHint();
    label.setWordWrap(wraps);
    return NaturalInDevice(whole);
}

int QtLabel::HeightAt(int width) const {
    const double ratio = DeviceRatio();
    Get().ensurePolished();
    return CeilToDevice(Get().heightForWidth(FloorToLogical(width, ratio)), ratio);
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
