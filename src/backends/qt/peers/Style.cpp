#include "backends/qt/peers/Style.h"

#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace tavrix::qt {

namespace {

/// Two arrow heads that point to the right.
QIcon MoreToTheRight(const QColor& colour) {
    constexpr int Side = 16;
    QPixmap pixmap(Side, Side);
    pixmap.fill(Qt::transparent);
    QPainterPath heads;
    for (const int x : {3, 8}) {
        heads.moveTo(x, 4);
        heads.lineTo(x + 4, 8);
        heads.lineTo(x, 12);
    }
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.5));
    painter.drawPath(heads);
    painter.end();
    return QIcon(pixmap);
}

}  // namespace

QIcon Style::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
    if (which == SP_ToolBarHorizontalExtensionButton) {
        return MoreToTheRight(standardPalette().color(QPalette::ButtonText));
    }
    return QProxyStyle::standardIcon(which, option, widget);
}

}  // namespace tavrix::qt
