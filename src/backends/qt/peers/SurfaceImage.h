#pragma once

#include <QImage>
#include <cstring>

#include "imaging/graphics/Surface.h"

namespace tavrix::qt {

/// A copy of a surface, with its transparency.
[[nodiscard]] inline QImage ImageOf(const Surface& surface) {
    QImage image(surface.Width(), surface.Height(), QImage::Format_ARGB32);
    for (int y = 0; y < surface.Height(); ++y)
        std::memcpy(image.scanLine(y), surface.Row(y).data(), surface.Row(y).size_bytes());
    return image;
}

}  // namespace tavrix::qt
