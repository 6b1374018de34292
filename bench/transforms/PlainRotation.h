#pragma once

#include "imaging/graphics/Surface.h"

namespace tavrix::bench {

/// A plain nearest-neighbour rotation about the centres: row by row, one step of a cosine and a sine for each pixel.
void PlainRotation(const Surface& source, Surface& dest, double angle);

}  // namespace tavrix::bench
