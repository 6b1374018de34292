#pragma once

#include <algorithm>

#include "platform/forms/RowRanges.h"

namespace tavrix::forms {

// Which row a list has at its top, for backends. All keep what can be seen where it is, as far as possible.

/// After rows came. What comes before the very first row is shown.
[[nodiscard]] inline int TopAfterInsertion(int top, int at, int count) {
    return top > 0 && at <= top ? top + count : top;
}

/// After rows went.
[[nodiscard]] inline int TopAfterRemoval(int top, const RowRanges& gone) {
    return top - gone.CountBefore(top);
}

/// So that a row is one of the `page` that can be seen; -1: as it is.
[[nodiscard]] inline int TopShowing(int row, int top, int page) {
    if (row < 0) return top;
    return std::clamp(top, std::max(row - page + 1, 0), row);
}

/// No more than there are rows to show.
[[nodiscard]] inline int TopWithin(int top, int page, int count) {
    return std::clamp(top, 0, std::max(count - page, 0));
}

}  // namespace tavrix::forms
