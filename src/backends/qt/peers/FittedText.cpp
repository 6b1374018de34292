#include "backends/qt/peers/FittedText.h"

#include <QFontInfo>
#include <QPainter>
#include <QTextOption>

namespace tavrix::qt {

FittedText::FittedText(const QString& text, const QFont& wished, const QSize& room) : room_(room) {
    layout_.setText(QString(text).replace(QLatin1Char('\n'), QChar(QChar::LineSeparator)));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    QFont font = wished;
    BreakIntoLines(font);
    for (int pixels = QFontInfo(wished).pixelSize() - 1; !fits_ && pixels >= SmallestPixels; --pixels) {
        font.setPixelSize(pixels);
        BreakIntoLines(font);
    }
}

void FittedText::BreakIntoLines(const QFont& font) {
    layout_.setFont(font);
    layout_.beginLayout();
    double height = 0;
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(room_.width());
        line.setPosition({0, height});
        height += line.height();
    }
    layout_.endLayout();
    fits_ = height <= room_.height();
}

void FittedText::Draw(QPainter& painter, const QPoint& corner) const {
    layout_.draw(&painter, corner);
}

}  // namespace tavrix::qt
