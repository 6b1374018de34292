#pragma once

#include <cstddef>
#include <span>

#include "imaging/vector/Region.h"

namespace tavrix::vector {

/// Puts a region together from rows, top to bottom. Rows that are alike and follow each other become one band.
class RegionBuilder {
  public:
    /// Regions do not grow beyond this number of spans.
    static constexpr std::size_t MaxSpans = std::size_t{1} << 22U;

    explicit RegionBuilder(WorkBudget& budget) : budget_(budget) {}

    /// A span of the row under way, right of those before; one that touches the one before it makes it longer.
    void AddSpan(int left, int right);
    /// Ends the row under way, which stands for the rows top to bottom (exclusive), below those before.
    void EndRow(int top, int bottom);
    /// Whether budget and memory sufficed so far; the rows since are missing otherwise.
    [[nodiscard]] bool Complete() const { return complete_; }
    [[nodiscard]] Region Build();

  private:
    WorkBudget& budget_;
    Region::Data data_;
    std::size_t rowStart_ = 0;
    bool complete_ = true;
};

}  // namespace tavrix::vector
