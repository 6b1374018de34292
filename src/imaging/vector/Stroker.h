#pragma once

#include "imaging/vector/Flatten.h"
#include "imaging/vector/PenShape.h"
#include "imaging/vector/Work.h"

namespace tavrix::vector {

/// The outlines of a line drawn along figures, both in device pixels; to be filled nonzero. What lies outside the
/// bounds may be left away. Paid from the budget.
[[nodiscard]] FlatPath OutlinesOf(const FlatPath& path, const PenShape& pen, const Box& bounds,
                                  WorkBudget& budget);

}  // namespace tavrix::vector
