#pragma once

#include <functional>

#include "editing/turning/RotateGeometry.h"
#include "imaging/graphics/Surface.h"

namespace tavrix {

/// Turns a picture about its centre into another surface, pixel by pixel in polar form, from the centre outward in
/// four arms at once. `angle` is in radians, positive counter-clockwise. All pixels of `source` are opaque.
///
/// `dest` has its final size. Where the source has no pixel it keeps what it holds, and so does the ring beyond the
/// larger of its half-sizes less one: column 0 and row 0 of a square, on odd sides the last ones too.
///
/// `afterRow` is called once for each row of the loop, 0 to the larger half-size less one, after its pixels (and
/// perhaps all of the next rows) have been drawn; what it throws passes through. A turn by whole quarters is drawn at one
/// stroke, and nothing is called: there is nothing to be seen of it before its end.
///
/// Throws RuntimeError 6 (Overflow) where the larger half-size less one does not fit 16 bits, and where a radius does
/// not; in the second case what was drawn up to there stays drawn.
void RotatePicture(const Surface& source, Surface& dest, float angle, const RotateGeometry& geometry,
                   const std::function<void(int row)>& afterRow);

}  // namespace tavrix
