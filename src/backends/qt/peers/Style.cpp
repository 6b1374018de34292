#include "backends/qt/peers/Style.h"

#include <QGuiApplication>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace tavrix::qt {

namespace {

/// Two arrow heads that point to the right, in the colour that texts have when they are painted.
class MoreToTheRight final : public QIconEngine {
  public:
    [[nodiscard]] QIconEngine* clone() const override { return new MoreToTheRight(*this); }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
        constexpr double Side = 16;
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        QPainterPath heads;
        for (const int x : {3, 8}) {
            heads.moveTo(x, 4);
            heads.lineTo(x + 4, 8);
            heads.lineTo(x, 12);
        }
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(place.topLeft());
        painter->scale(place.width() / Side, place.height() / Side);
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::ButtonText), 1.5));
        painter->drawPath(heads);
        painter->restore();
    }
};

}  // namespace

QIcon Style::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
    if (which == SP_ToolBarHorizontalExtensionButton) {
        return QIcon(new MoreToTheRight);  // which owns it
    }
    return QProxyStyle::standardIcon(which, option, widget);
}

}  // namespace tavrix::qt
