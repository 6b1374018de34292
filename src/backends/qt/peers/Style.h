#pragma once

#include <QProxyStyle>

#include "backends/qt/desktop/Look.h"

namespace tavrix::qt {

/// The desktop's style without what costs time at the start: the icon of a menu bar that is too long, made with
/// every menu bar, would load the plugins of all picture formats. The toolkit's own style draws the outlines of fields, boxes
/// and lists too faint to be seen by everybody, in dark colours above all: they are drawn over.
class Style final : public QProxyStyle {
  public:
    [[nodiscard]] QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                                     const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* more) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

    using QProxyStyle::polish;
    /// Has the colours that theme and style came to follow the look.
    void polish(QPalette& palette) override;

    /// What the desktop wishes. The style's own movements are over at once where nothing is to move.
    void Follow(const Look& look) { look_ = look; }

  private:
    Look look_;
};

}  // namespace tavrix::qt
