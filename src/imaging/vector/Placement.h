#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "imaging/vector/Blit.h"

namespace tavrix::vector {

/// Where the pixels of a placed bitmap come to lie, and which of its pixels belongs to one of the device.
class Placement {
  public:
    struct Place {
        int column = 0;
        int row = 0;
    };

    /// `clip`: what is drawn on at most.
    Placement(const PlacedBitmap& source, const PixelRect& clip);

    /// The part of the device that may be drawn on; empty when there is nothing to draw.
    [[nodiscard]] const PixelRect& Area() const { return area_; }
    /// About how many pixels have to be looked at.
    [[nodiscard]] std::int64_t Cost() const;
    /// Calls visit(x, pixel, place) for the columns from (inclusive) to (exclusive) of a row of the area, where the part
    /// that is drawn lies.
    template <class Visitor>
    void VisitRow(int y, int from, int to, Visitor visit) const {
        if (columns_.empty()) {
            for (int x = from; x < to; ++x)
                if (const auto place = PlaceUnder(x, y)) visit(x, PixelAt(*place), *place);
            return;
        }
        const Range& rows = rows_[static_cast<std::size_t>(y - area_.top)];
        if (rows.first == rows.last) return;
        const int row = (rows.first + rows.last) / 2;
        const auto pixels = bitmap_.Row(row);
        for (int x = from; x < to; ++x) {
            const Range& columns = columns_[static_cast<std::size_t>(x - area_.left)];
            if (columns.first == columns.last) continue;
            const int column = (columns.first + columns.last) / 2;
            visit(x, average_ ? MeanOf(columns, rows) : pixels[static_cast<std::size_t>(column)],
                  Place{column, row});
        }
    }

  private:
    /// Pixels of the bitmap, from first (inclusive) to last (exclusive), that fall on one row or column of the area.
    struct Range {
        int first = 0;
        int last = 0;
    };

    /// The bitmap's pixel under the centre of one of the device; nothing outside the part that is drawn.
    [[nodiscard]] std::optional<Place> PlaceUnder(int x, int y) const;
    [[nodiscard]] Pixel PixelAt(Place place) const {
        return bitmap_.Row(place.row)[static_cast<std::size_t>(place.column)];
    }
    [[nodiscard]] Pixel MeanOf(const Range& columns, const Range& rows) const;
    void PlaceUpright(const Box& to, const PixelRect& clip);
    void PlaceTurned(const PixelRect& clip);
    [[nodiscard]] std::vector<Range> RangesOf(double toStart, double toEnd, double fromStart, double fromEnd,
                                              int areaStart, int areaSize, int limit) const;

    const Surface& bitmap_;
    Box part_;
    Affine toDevice_;
    bool average_ = false;
    PixelRect area_;
    std::vector<Range> columns_;  ///< of the area, where the bitmap lies upright; otherwise empty
    std::vector<Range> rows_;
    Affine toBitmap_;
};

}  // namespace tavrix::vector
