#pragma once

#include <QProxyStyle>

namespace tavrix::qt {

/// The desktop's style without what costs time at the start: the icon of a menu bar that is too long, made with
/// every menu bar, would load the plugins of all picture formats.
class Style final : public QProxyStyle {
  public:
    [[nodiscard]] QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                                     const QWidget* widget) const override;
};

}  // namespace tavrix::qt
