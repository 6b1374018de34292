#pragma once

#include "imaging/vector/Path.h"

namespace tavrix::vector {

/// How lines parallel to the axes are moved to crisp places.
struct SnapGrid {
    /// Where a line comes to lie, from the whole number nearest to it: 0 for borders of fillings and for pens of an
    /// even width, 0.5 for pens of an odd one.
    double line = 0;
    /// The same for the ends of such a line, along it.
    double end = 0;
    /// Whether open figures count as closed.
    bool fill = true;
};

/// The path with its lines that are parallel to an axis moved to crisp places, and with what joins them. Nothing
/// moves by more than half a pixel from its place plus `line`, to which all other points are moved. In figures of
/// many points, short lines stay as they are: they are pieces of curves.
[[nodiscard]] Path Snapped(const Path& path, const SnapGrid& grid);

}  // namespace tavrix::vector
