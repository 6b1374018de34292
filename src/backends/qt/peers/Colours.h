#pragma once

#include <QColor>
#include <QPalette>

#include "imaging/graphics/Colour.h"

namespace tavrix::qt {

/// A colour of the logic as the desktop's theme shows it.
[[nodiscard]] inline QColor ToQColor(Colour colour, const QPalette& palette) {
    return colour == ButtonFace ? palette.color(QPalette::Active, QPalette::Window)
                                : QColor::fromRgb(ToPixel(colour));
}

}  // namespace tavrix::qt
