#pragma once

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// Draws a picture at a place of the surface, in pixels; what lies outside is left away. Transparent pixels leave
/// the surface as it is, half-transparent ones are mixed with it.
void DrawOver(Surface& surface, int left, int top, const Surface& picture);

/// Fills a rectangle, clipped to the surface.
void FillBox(Surface& surface, const PixelRect& box, Pixel pixel);

/// Inverts the colours along the outline of a rectangle, one pixel wide, clipped to the surface. Drawing it twice
/// restores the surface. Corners are inclusive and may come in any order.
void InvertOutline(Surface& surface, int x1, int y1, int x2, int y2);

}  // namespace tavrix
