#pragma once

#include <string>
#include <vector>

#include "platform/forms/RowRanges.h"

namespace tavrix::forms {

/// Which row of a list that was read again is which former row, by the exact texts. Of several equal texts the first is
/// the first, and so on. One pass over both lists.
class SameRows {
  public:
    SameRows(const std::vector<std::string>& before, const std::vector<std::string>& now);

    /// -1: it is there no more, or there was none (-1).
    [[nodiscard]] int Of(int row) const;
    [[nodiscard]] RowRanges Of(const RowRanges& rows) const;

  private:
    std::vector<int> nowAt_;  ///< by the former row
};

}  // namespace tavrix::forms
