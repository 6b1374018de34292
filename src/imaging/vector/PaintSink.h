#pragma once

#include <cstdint>
#include <span>

#include "imaging/graphics/Surface.h"
#include "imaging/vector/ClipRows.h"
#include "imaging/vector/Rasteriser.h"

namespace tavrix::vector {

/// Paints what a shape covers, inside a clip that lies on the surface. `Ink` is called with x, y, the
/// pixel that is there and the coverage, and gives the pixel to be; `cost`: of a pixel, in units of work.
template <class Ink>
class PaintSink : public CoverageSink {
  public:
    PaintSink(Surface& target, const Region& clip, WorkBudget& budget, int cost, Ink ink)
        : target_(target), rows_(clip), budget_(budget), cost_(cost), ink_(ink) {}

    void Run(int y, int x, int count, std::uint8_t coverage) override {
        if (!budget_.Spend(std::int64_t{count} * cost_ + 16)) return;
        rows_.Visit(y, x, x + count, [&](int from, int to) {
            const std::span<Pixel> row = target_.Row(y);
            for (int at = from; at < to; ++at) {
                Pixel& pixel = row[static_cast<std::size_t>(at)];
                pixel = ink_(at, y, pixel, coverage);
            }
        });
    }

  private:
    Surface& target_;
    ClipRows rows_;
    WorkBudget& budget_;
    int cost_;
    Ink ink_;
};

}  // namespace tavrix::vector
