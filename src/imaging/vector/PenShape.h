#pragma once

#include <vector>

#include "imaging/vector/Pen.h"
#include "imaging/vector/Snap.h"

namespace tavrix::vector {

/// What a pen comes to under its map. The line is made in the units of the pen, where its nib is round, and mapped to
/// the device afterwards.
struct PenShape {
    Affine toDevice;
    Affine toPen;
    double width = 1;  ///< in units of the pen
    LineCap cap = LineCap::Flat;
    LineJoin join = LineJoin::Miter;
    double miterLimit = 10;
    std::vector<double>
        dashes;              ///< an even number of lengths in units of the pen, in all more than 0; or none
    bool onePixel = false;   ///< the finest line, whose ends reach to the borders of their pixels
    double deviceWidth = 1;  ///< a whole number, where the map is the same in all directions

    [[nodiscard]] SnapGrid Grid() const;
};

[[nodiscard]] PenShape ShapeOf(const Pen& pen, const Affine& penToDevice);

}  // namespace tavrix::vector
