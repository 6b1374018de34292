#pragma once

#include "imaging/vector/Path.h"
#include "imaging/vector/Pen.h"
#include "imaging/vector/Work.h"

namespace tavrix::vector {

/// The outlines of what a pen draws along a path, without the pen's half pixel, to be filled nonzero. `bounds`:
/// what lies outside may be left away. Paid from the budget; where that is used up, the rest is missing. Throws
/// nothing but std::bad_alloc.
[[nodiscard]] Path Widen(const Path& path, const Pen& pen, const Affine& penToDevice, const Box& bounds,
                         WorkBudget& budget);

/// The same figures made of lines alone, none of which is farther than 0.03 pixels from the path (in curves
/// up to some 10,000 pixels long). Throws nothing but std::bad_alloc.
[[nodiscard]] Path Flattened(const Path& path);

}  // namespace tavrix::vector
