#pragma once

#include "imaging/graphics/Surface.h"
#include "imaging/vector/Brush.h"
#include "imaging/vector/Geometry.h"
#include "imaging/vector/RasterOperation.h"

namespace tavrix::vector {

/// What becomes of several pixels of a bitmap that fall on one of the device.
enum class StretchMode : std::uint8_t {
    Nearest,  ///< one of them is taken
    Average,  ///< their mean, where the bitmap lies parallel to the axes
};

/// A bitmap and the place it goes to.
struct PlacedBitmap {
    const Surface* bitmap = nullptr;  ///< null or empty: nothing is drawn
    /// The part that is drawn, in pixels of the bitmap; what lies outside the bitmap is left away. The sides may
    /// come in any order.
    Box part;
    /// From pixels of the bitmap to device pixels: Affine::Between(part, place).Then(logicalToDevice). Under a map
    /// that keeps boxes, the sides of the place are rounded to whole pixels, and to one pixel at least unless the
    /// place is empty.
    Affine toDevice;
    StretchMode mode = StretchMode::Nearest;
};

/// Which pixels of a masked blit are drawn by the one operation and which by the other.
struct BlitMask {
    const Surface* bitmap =
        nullptr;      ///< a pixel that is not black (alpha aside): the operation; black: the other one
    int offsetX = 0;  ///< the mask's pixel that belongs to pixel (0, 0) of the bitmap
    int offsetY = 0;
    TernaryOperation otherwise = DestinationKept;
};

}  // namespace tavrix::vector
