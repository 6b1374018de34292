#pragma once

#include <algorithm>
#include <span>

#include "imaging/vector/Pixels.h"
#include "imaging/vector/Region.h"

namespace tavrix::vector {

/// The rows of a clip, for those who go through it row by row.
class ClipRows {
  public:
    explicit ClipRows(const Region& clip) : clip_(clip) {}

    /// Calls visit(from, to) for each part of the columns left to right (exclusive) that lies in the clip.
    template <class Visitor>
    void Visit(int y, int left, int right, Visitor visit) {
        if (y != row_ || !known_) {
            spans_ = clip_.Row(y);
            row_ = y;
            known_ = true;
            next_ = 0;
        }
        // Calls come from left to right, mostly.
        if (next_ > 0 && next_ <= spans_.size() && spans_[next_ - 1].right > left) next_ = 0;
        while (next_ < spans_.size() && spans_[next_].right <= left)
            ++next_;
        for (std::size_t i = next_; i < spans_.size() && spans_[i].left < right; ++i)
            visit(std::max(left, spans_[i].left), std::min(right, spans_[i].right));
    }

  private:
    const Region& clip_;
    std::span<const Region::Span> spans_;
    int row_ = 0;
    bool known_ = false;
    std::size_t next_ = 0;
};

/// Calls visit(y, from, to) for all of a rectangle that lies in the clip.
template <class Visitor>
void VisitClipped(const Region& clip, const PixelRect& rect, Visitor visit) {
    const PixelRect seen = Intersection(rect, clip.Bounds());
    if (seen.width == 0) return;
    ClipRows rows(clip);
    for (int y = seen.top; y < seen.top + seen.height; ++y)
        rows.Visit(y, seen.left, seen.left + seen.width, [&](int from, int to) { visit(y, from, to); });
}

}  // namespace tavrix::vector
