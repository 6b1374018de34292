#include "imaging/graphics/StretchCopy.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "imaging/graphics/Bands.h"

namespace tavrix {
namespace {

/// One direction of a copy: which pixels of the destination are written, and what each of them takes.
class Axis {
  public:
    Axis(int to, int toSize, int toLimit, int from, int fromSize, int fromLimit)
        : start_(to),
          count_(std::abs(std::int64_t{toSize})),
          mirrored_(toSize < 0),
          from_(from),
          size_(fromSize) {
        if (count_ == 0 || fromSize <= 0) return;
        // The corner of a mirrored rectangle is the edge behind its first pixel.
        const std::int64_t lowest = mirrored_ ? start_ - count_ : start_;
        first_ = std::max<std::int64_t>(lowest, 0);
        end_ = std::min<std::int64_t>(lowest + count_, toLimit);
        const auto outside = [&](std::int64_t at) { return SourceOf(at) < 0 || SourceOf(at) >= fromLimit; };
        while (first_ < end_ && outside(first_))
            ++first_;
        while (first_ < end_ && outside(end_ - 1))
            --end_;
    }

    [[nodiscard]] int First() const { return static_cast<int>(first_); }
    [[nodiscard]] int End() const { return static_cast<int>(std::max(first_, end_)); }
    [[nodiscard]] std::int64_t SourceOf(std::int64_t at) const {
        const std::int64_t step = mirrored_ ? start_ - 1 - at : at - start_;
        return from_ + step * size_ / count_;
    }
    [[nodiscard]] bool Scales() const { return count_ != size_; }
    [[nodiscard]] bool Mirrors() const { return mirrored_; }

  private:
    std::int64_t start_;
    std::int64_t count_;
    bool mirrored_;
    std::int64_t from_;
    std::int64_t size_;
    std::int64_t first_ = 0;
    std::int64_t end_ = 0;
};

/// Fills the written part of one row.
class RowCopy {
  public:
    explicit RowCopy(const Axis& columns) : columns_(columns) {
        if (!columns.Scales()) return;
        sources_.reserve(static_cast<std::size_t>(columns.End() - columns.First()));
        for (int x = columns.First(); x < columns.End(); ++x)
            sources_.push_back(static_cast<std::uint32_t>(columns.SourceOf(x)));
    }

    void Fill(std::span<Pixel> to, std::span<const Pixel> from) const {
        if (columns_.Scales()) {
            std::ranges::transform(sources_, to.begin(), [from](std::uint32_t x) { return from[x]; });
        } else if (columns_.Mirrors()) {
            const auto first = static_cast<std::size_t>(columns_.SourceOf(columns_.End() - 1));
            std::ranges::reverse_copy(from.subspan(first, to.size()), to.begin());
        } else {
            const auto first = static_cast<std::size_t>(columns_.SourceOf(columns_.First()));
            std::ranges::copy(from.subspan(first, to.size()), to.begin());
        }
    }

  private:
    const Axis& columns_;
    std::vector<std::uint32_t> sources_;
};

}  // namespace

void StretchCopy(Surface& dest, const PixelRect& to, const Surface& source, const PixelRect& from) {
    const Axis columns(to.left, to.width, dest.Width(), from.left, from.width, source.Width());
    const Axis rows(to.top, to.height, dest.Height(), from.top, from.height, source.Height());
    const int width = columns.End() - columns.First();
    if (width == 0) return;
    const auto written = [&](int y) {
        return dest.Row(y).subspan(static_cast<std::size_t>(columns.First()),
                                   static_cast<std::size_t>(width));
    };
    const RowCopy copy(columns);
    const int height = rows.End() - rows.First();
    InBands(height, std::int64_t{width} * height, [&](int first, int end) {
        std::int64_t last = -1;
        for (int y = rows.First() + first; y < rows.First() + end; ++y) {
            const std::int64_t row = rows.SourceOf(y);
            if (row == last) {
                std::ranges::copy(written(y - 1), written(y).begin());
            } else {
                copy.Fill(written(y), source.Row(static_cast<int>(row)));
            }
            last = row;
        }
    });
}

}  // namespace tavrix
