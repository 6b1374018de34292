#pragma once

#include <array>

#include "imaging/vector/Geometry.h"

namespace tavrix::vector {

/// A corner of a gradient: a place in device pixels and a colour of parts 0 to 65535, as gradient records hold it.
struct GradientVertex {
    Point at;
    double red = 0;
    double green = 0;
    double blue = 0;
};

using GradientTriangle = std::array<GradientVertex, 3>;

}  // namespace tavrix::vector
