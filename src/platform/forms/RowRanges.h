#pragma once

#include <cstddef>
#include <vector>

namespace tavrix::forms {

/// Rows from `first` on, `end` exclusive; 0 <= first < end.
struct RowRange {
    int first = 0;
    int end = 0;
    friend bool operator==(const RowRange&, const RowRange&) = default;
};

/// A set of rows, kept as ranges, so that all of 200,000 rows are one. Adding rows in rising order costs a moment each;
/// adding in any order costs time that grows with the number of ranges.
class RowRanges {
  public:
    RowRanges() = default;
    RowRanges(int first, int end) { Add(first, end); }

    [[nodiscard]] bool Empty() const { return ranges_.empty(); }
    /// How many rows; in constant time.
    [[nodiscard]] int Count() const { return count_; }
    [[nodiscard]] bool Contains(int row) const;
    /// The ranges in rising order; none touches the next.
    [[nodiscard]] const std::vector<RowRange>& Ranges() const { return ranges_; }
    /// How many of the rows lie before this one.
    [[nodiscard]] int CountBefore(int row) const;

    // `end` is exclusive; nothing happens where it is not above `first`.
    void Add(int first, int end);
    void Add(int row) { Add(row, row + 1); }
    void Remove(int first, int end);
    void Remove(int row) { Remove(row, row + 1); }
    void Clear();
    /// Every row of 0 to `rowCount` - 1 that was in the set is out of it, and the others are in.
    void Invert(int rowCount);

    /// Rows came before the row that was `at`; they are not in the set.
    void RowsInserted(int at, int count);
    /// These rows, as they were counted before, are gone.
    void RowsRemoved(const RowRanges& gone);

    friend bool operator==(const RowRanges&, const RowRanges&) = default;

  private:
    [[nodiscard]] std::size_t FirstEndingAtOrAfter(int row) const;

    std::vector<RowRange> ranges_;
    int count_ = 0;
};

/// Where a row is once rows are gone; -1 if it is among them, and for no row (-1).
[[nodiscard]] int RowAfterRemoval(int row, const RowRanges& gone);

}  // namespace tavrix::forms
