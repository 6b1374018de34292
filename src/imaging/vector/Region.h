#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "imaging/graphics/Surface.h"
#include "imaging/vector/Path.h"
#include "imaging/vector/Work.h"

namespace tavrix::vector {

enum class FillRule : std::uint8_t { EvenOdd, NonZero };

/// How a region is combined with another, by the numbers of the metafile formats.
enum class RegionMode : std::uint8_t { And = 1, Or = 2, Xor = 3, Difference = 4, Copy = 5 };

/// A set of whole pixels, as clips are. A value: copies share what is in it, so that saving and restoring one costs
/// nothing. Coordinates are kept within ±2^26. Throws nothing but std::bad_alloc.
class Region {
  public:
    /// Columns left (inclusive) to right (exclusive) of a row.
    struct Span {
        int left = 0;
        int right = 0;
        friend bool operator==(Span, Span) = default;
    };

    /// The empty region.
    Region() = default;
    explicit Region(const PixelRect& rect);
    /// The pixels whose centre lies inside the path, among those of the bounds. Paid from the budget; where that is
    /// used up, the region ends at some row.
    [[nodiscard]] static Region Of(const Path& path, FillRule rule, const PixelRect& bounds,
                                   WorkBudget& budget);
    /// The union of rectangles in any order, as region records hold them (a width or height below 0 reaches the
    /// other way). Paid from the budget.
    [[nodiscard]] static Region Of(std::span<const PixelRect> rects, WorkBudget& budget);

    /// This region combined with another: And, Or, Xor as they say; Difference takes the other's pixels away; Copy is
    /// the other. Paid from the budget; where that is used up, the region stays as it is.
    [[nodiscard]] Region Combined(RegionMode mode, const Region& other, WorkBudget& budget) const;
    /// Paid from the budget; where that is used up, the lower rows are missing.
    [[nodiscard]] Region Shifted(int dx, int dy, WorkBudget& budget) const;

    [[nodiscard]] bool Empty() const { return !data_; }
    [[nodiscard]] bool Contains(int x, int y) const;
    /// The smallest rectangle around it; all 0 when empty.
    [[nodiscard]] PixelRect Bounds() const;
    /// The columns of a row, in order, apart from each other.
    [[nodiscard]] std::span<const Span> Row(int y) const;
    /// What it takes in memory, roughly: rows that differ, and spans in them.
    [[nodiscard]] std::size_t Size() const;

    friend bool operator==(const Region& a, const Region& b);

  private:
    friend class RegionBuilder;

    /// Rows that have the same columns.
    struct Band {
        int top = 0;
        int bottom = 0;
        std::uint32_t first = 0;  ///< index of the first span
        std::uint32_t count = 0;
        friend bool operator==(const Band&, const Band&) = default;
    };
    struct Data {
        std::vector<Band> bands;
        std::vector<Span> spans;
        int left = 0;
        int right = 0;
        friend bool operator==(const Data&, const Data&) = default;
    };

    [[nodiscard]] std::span<const Span> SpansOf(const Band& band) const;

    std::shared_ptr<const Data> data_;  ///< null: empty
};

}  // namespace tavrix::vector
