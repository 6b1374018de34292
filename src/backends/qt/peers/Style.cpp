#include "backends/qt/peers/Style.h"

#include <QGuiApplication>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <QStyleOption>

#include "backends/qt/peers/Contrast.h"

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

/// Of a control on its window, and around its own field.
QColor OutlineOf(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Window);
    constexpr double Least = OutlineContrast + 1;  // smooth edges lose some of it
    return ReadableOn(palette.color(QPalette::Base), ReadableOn(window, window, Least), Least);
}

bool IsUsable(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_Enabled);
}

/// Fields have the toolkit's own outline while they have the focus; lists, boxes and options have none.
bool IsPlainlyUsable(const QStyleOption& option) {
    return IsUsable(option) && !option.state.testFlag(QStyle::State_HasFocus);
}

/// The line of one pixel within a place, which is a circle or has its corners cut.
void DrawOutline(QPainter& painter, const QRect& place, const QColor& colour, bool round) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, 1));
    const QRectF line = QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5);
    constexpr double Corner = 2;
    if (round) {
        painter.drawEllipse(line);
    } else {
        painter.drawRoundedRect(line, Corner, Corner);
    }
    painter.restore();
}

/// The mark of what has the focus.
void DrawFocus(QPainter& painter, const QStyleOption& option) {
    const auto* focus = qstyleoption_cast<const QStyleOptionFocusRect*>(&option);
    const bool known = focus != nullptr && focus->backgroundColor.isValid();
    const QColor below = known ? focus->backgroundColor : option.palette.color(QPalette::Window);
    const QColor wished = option.palette.color(QPalette::Highlight);
    DrawOutline(painter, option.rect, ReadableOn(below, wished, OutlineContrast), false);
}

/// Other styles have outlines of their own making.
bool IsToolkitsOwn(const QStyle& style) {
    return style.inherits("QFusionStyle");
}

}  // namespace

void Style::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    palette = PaletteOf(look_, palette).resolve(palette);
    // A palette of which parts count as set would be copied for each widget, and what styles draw be kept for each copy.
    palette.setResolveMask(0);
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* more) const {
    if (hint == SH_Widget_Animation_Duration && !look_.moves) return 0;
    return QProxyStyle::styleHint(hint, option, widget, more);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    if (element == PE_FrameFocusRect && IsToolkitsOwn(*baseStyle())) {
        // The style's own one is a veil over the text.
        if (option->state.testFlag(State_KeyboardFocusChange)) DrawFocus(*painter, *option);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (!IsUsable(*option) || !IsToolkitsOwn(*baseStyle())) return;
    if (element == PE_IndicatorRadioButton) {
        DrawOutline(*painter, option->rect.adjusted(1, 1, -1, -1), OutlineOf(option->palette), true);
    } else if (element == PE_IndicatorCheckBox) {
        DrawOutline(*painter, option->rect.adjusted(1, 1, -1, -1), OutlineOf(option->palette), false);
    } else if (element == PE_Frame || (element == PE_FrameLineEdit && IsPlainlyUsable(*option))) {
        DrawOutline(*painter, option->rect, OutlineOf(option->palette), false);
    }
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox && IsPlainlyUsable(*option) && IsToolkitsOwn(*baseStyle()))
        DrawOutline(*painter, option->rect, OutlineOf(option->palette), false);
}

QIcon Style::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
    if (which == SP_ToolBarHorizontalExtensionButton) {
        return QIcon(new MoreToTheRight);  // which owns it
    }
    return QProxyStyle::standardIcon(which, option, widget);
}

}  // namespace tavrix::qt
