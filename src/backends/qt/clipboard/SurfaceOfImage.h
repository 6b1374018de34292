#pragma once

#include <QImage>

#include "imaging/graphics/Surface.h"

namespace tavrix::qt {

/// The pixels of an image, opaque. Throws RuntimeError 7 above the limits of pictures.
[[nodiscard]] Surface SurfaceOfImage(const QImage& image);

}  // namespace tavrix::qt
