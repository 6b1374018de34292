#pragma once

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// Copies a rectangle of a picture to a rectangle of a surface, in pixels; alpha is copied like a colour.
///
/// Where the sizes differ, pixel i of a destination of n pixels is pixel floor(i * m / n) of the m of the source: on
/// shrinking rows and columns fall out, on growing they are repeated. A negative width or height of `to` mirrors:
/// the rectangle then lies before its corner, so that left = 10, width = -10 fills the columns 9 to 0 in this order.
///
/// What lies outside the destination is left away, and so is what would come from outside the source. A side of 0, or
/// one of `from` below 0, copies nothing.
void StretchCopy(Surface& dest, const PixelRect& to, const Surface& source, const PixelRect& from);

}  // namespace tavrix
