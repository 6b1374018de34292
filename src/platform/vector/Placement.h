#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/vector/Blit.h"

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
    /// The bitmap's pixel under the centre of one in the area; nothing outside the part that is drawn.
    [[nodiscard]] std::optional<Place> At(int x, int y) const;
    /// What is drawn there, after At has found the place.
    [[nodiscard]] Pixel PixelAt(int x, int y, Place place) const;

  private:
    /// Pixels of the bitmap, from first (inclusive) to last (exclusive), that fall on one row or column of the area.
    struct Range {
        int first = 0;
        int last = 0;
    };

    void PlaceUpright(const Box& to, const PixelRect& clip);
    void PlaceTurned(const PixelRect& clip);
    [[nodiscard]] std::vector<Range> RangesOf(double toStart, double toEnd, double fromStart,
                                                     double fromEnd, int areaStart, int areaSize, int limit) const;

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
