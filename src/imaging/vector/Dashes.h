#pragma once

#include <vector>

#include "imaging/vector/Flatten.h"
#include "imaging/vector/Work.h"

namespace tavrix::vector {

/// Cuts figures into dashes, which are open figures of their own. Each figure starts the pattern anew, a closed one
/// `closedStart` into it./// `dashes`: an even number of lengths, in all more than 0. Dashes outside the bounds are
/// left away without a cost, so that the number of dashes depends on what is seen. Paid from the budget.
[[nodiscard]] FlatPath CutIntoDashes(const FlatPath& path, const std::vector<double>& dashes,
                                     double closedStart, const Box& bounds, WorkBudget& budget);

}  // namespace tavrix::vector
