#include "imaging/vector/Placement.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "imaging/vector/Path.h"
#include "imaging/vector/Pixels.h"

namespace tavrix::vector {
namespace {

const Surface& BitmapOf(const PlacedBitmap& source) {
    static const Surface none;
    return source.bitmap != nullptr ? *source.bitmap : none;
}

/// The borders that a side from `from` to `to` is rounded to; at least a pixel apart unless the side is empty.
std::pair<double, double> RoundedSide(double from, double to) {
    const double first = NearestBorder(from);
    double last = NearestBorder(to);
    if (first == last && from != to) last += to > from ? 1 : -1;
    return {first, last};
}

Box InOrder(Box box) {
    if (box.left > box.right) std::swap(box.left, box.right);
    if (box.top > box.bottom) std::swap(box.top, box.bottom);
    return box;
}

}  // namespace

Placement::Placement(const PlacedBitmap& source, const PixelRect& clip)
    : bitmap_(BitmapOf(source)),
      part_(source.part),
      toDevice_(source.toDevice),
      average_(source.mode == StretchMode::Average) {
    for (double* side : {&part_.left, &part_.top, &part_.right, &part_.bottom})
        *side = Tamed(*side);
    if (bitmap_.Empty() || part_.Width() == 0 || part_.Height() == 0) return;
    const Point a = Tamed(toDevice_.Apply({part_.left, part_.top}));
    const Point b = Tamed(toDevice_.Apply({part_.right, part_.bottom}));
    if (!toDevice_.KeepsBoxes()) {
        PlaceTurned(clip);
        return;
    }
    const auto [left, right] = RoundedSide(a.x, b.x);
    const auto [top, bottom] = RoundedSide(a.y, b.y);
    if (left == right || top == bottom) return;
    const Box to{left, top, right, bottom};
    if (std::abs(toDevice_.m11) > std::abs(toDevice_.m12)) {
        PlaceUpright(to, clip);
        return;
    }
    // A quarter turn: the columns of the bitmap are rows of the device.
    const double x = to.Width() / part_.Height();
    const double y = to.Height() / part_.Width();
    toDevice_ = {0, y, x, 0, to.left - part_.top * x, to.top - part_.left * y};
    PlaceTurned(clip);
}

void Placement::PlaceUpright(const Box& to, const PixelRect& clip) {
    area_ = Intersection(NearestRect(InOrder(to)), clip);
    if (area_.width == 0 || area_.height == 0) return;
    columns_ = RangesOf(to.left, to.right, part_.left, part_.right, area_.left, area_.width, bitmap_.Width());
    rows_ = RangesOf(to.top, to.bottom, part_.top, part_.bottom, area_.top, area_.height, bitmap_.Height());
}

std::vector<Placement::Range> Placement::RangesOf(double toStart, double toEnd, double fromStart,
                                                  double fromEnd, int areaStart, int areaSize,
                                                  int limit) const {
    const double scale = (fromEnd - fromStart) / (toEnd - toStart);
    const auto sourceAt = [&](double at) { return fromStart + (at - toStart) * scale; };
    std::vector<Range> ranges(static_cast<std::size_t>(areaSize));
    for (int i = 0; i < areaSize; ++i) {
        const double at = double(areaStart) + i;
        const auto [low, high] = std::minmax({sourceAt(at), sourceAt(at + 1)});
        const double centre = std::floor(sourceAt(at + 0.5));
        if (centre < 0 || centre >= limit) continue;
        double first = centre;
        double last = centre + 1;
        if (average_ && high - low > 1) {
            // Neighbours share no pixel.
            first = std::floor(low + 0.5);
            last = std::max(std::floor(high + 0.5), first + 1);
        }
        ranges[static_cast<std::size_t>(i)] = {static_cast<int>(std::clamp(first, 0.0, double(limit - 1))),
                                               static_cast<int>(std::clamp(last, 1.0, double(limit)))};
    }
    return ranges;
}

void Placement::PlaceTurned(const PixelRect& clip) {
    const auto inverse = toDevice_.Inverse();
    if (!inverse) return;
    toBitmap_ = *inverse;
    Path corners;
    corners.AddBox(part_);
    area_ = Intersection(TouchedRect(corners.Transformed(toDevice_).Bounds()), clip);
}

std::int64_t Placement::Cost() const {
    std::int64_t cost = std::int64_t{area_.width} * area_.height * (columns_.empty() ? 24 : 16);
    if (average_ && !columns_.empty()) {
        const auto count = [](const std::vector<Range>& ranges) {
            std::int64_t sum = 0;
            for (const Range& range : ranges)
                sum += range.last - range.first;
            return sum;
        };
        cost += 4 * count(columns_) * count(rows_);
    }
    return cost;
}

std::optional<Placement::Place> Placement::PlaceUnder(int x, int y) const {
    const Point at = toBitmap_.Apply({x + 0.5, y + 0.5});
    const Box part = InOrder(part_);
    if (!(at.x >= std::max(part.left, 0.0) && at.x < std::min(part.right, double(bitmap_.Width()))))
        return std::nullopt;
    if (!(at.y >= std::max(part.top, 0.0) && at.y < std::min(part.bottom, double(bitmap_.Height()))))
        return std::nullopt;
    return Place{static_cast<int>(at.x), static_cast<int>(at.y)};
}

Pixel Placement::MeanOf(const Range& columns, const Range& rows) const {
    std::array<std::uint64_t, 4> sums{};
    for (int row = rows.first; row < rows.last; ++row) {
        const auto pixels = bitmap_.Row(row);
        for (int column = columns.first; column < columns.last; ++column) {
            const Pixel pixel = pixels[static_cast<std::size_t>(column)];
            for (unsigned channel = 0; channel < 4; ++channel)
                sums[channel] += (pixel >> (channel * 8U)) & 0xFFU;
        }
    }
    const auto count = static_cast<std::uint64_t>(rows.last - rows.first) *
                       static_cast<std::uint64_t>(columns.last - columns.first);
    Pixel mean = 0;
    for (unsigned channel = 0; channel < 4; ++channel)
        mean |= static_cast<Pixel>((sums[channel] + count / 2) / count) << (channel * 8U);
    return mean;
}

}  // namespace tavrix::vector
