#include "platform/forms/RowRanges.h"

#include <algorithm>
#include <utility>

namespace tavrix::forms {

std::size_t RowRanges::FirstEndingAtOrAfter(int row) const {
    const auto found = std::ranges::lower_bound(ranges_, row, {}, &RowRange::end);
    return static_cast<std::size_t>(found - ranges_.begin());
}

bool RowRanges::Contains(int row) const {
    const auto found = std::ranges::upper_bound(ranges_, row, {}, &RowRange::end);
    return found != ranges_.end() && found->first <= row;
}

int RowRanges::CountBefore(int row) const {
    int count = 0;
    for (const RowRange& range : ranges_) {
        if (range.first >= row) break;
        count += std::min(range.end, row) - range.first;
    }
    return count;
}

void RowRanges::Add(int first, int end) {
    if (first >= end) return;
    if (ranges_.empty() || ranges_.back().end < first) {
        ranges_.push_back({first, end});
        count_ += end - first;
        return;
    }
    const auto from = ranges_.begin() + static_cast<std::ptrdiff_t>(FirstEndingAtOrAfter(first));
    auto to = from;  // those from here on touch neither the new range nor what it has swallowed
    RowRange whole{first, end};
    while (to != ranges_.end() && to->first <= end) {
        whole.first = std::min(whole.first, to->first);
        whole.end = std::max(whole.end, to->end);
        count_ -= to->end - to->first;
        ++to;
    }
    count_ += whole.end - whole.first;
    if (from == to) {
        ranges_.insert(from, whole);
    } else {
        *from = whole;
        ranges_.erase(from + 1, to);
    }
}

void RowRanges::Remove(int first, int end) {
    if (first >= end) return;
    const auto from = std::ranges::upper_bound(ranges_, first, {}, &RowRange::end);
    auto to = from;
    std::vector<RowRange> left;
    while (to != ranges_.end() && to->first < end) {
        if (to->first < first) left.push_back({to->first, first});
        if (to->end > end) left.push_back({end, to->end});
        count_ -= std::min(to->end, end) - std::max(to->first, first);
        ++to;
    }
    const auto place = ranges_.erase(from, to);
    ranges_.insert(place, left.begin(), left.end());
}

void RowRanges::Clear() {
    ranges_.clear();
    count_ = 0;
}

void RowRanges::Invert(int rowCount) {
    RowRanges others;
    int from = 0;
    for (const RowRange& range : ranges_) {
        others.Add(from, std::min(range.first, rowCount));
        from = range.end;
    }
    others.Add(from, rowCount);
    *this = std::move(others);
}

void RowRanges::RowsInserted(int at, int count) {
    if (count <= 0) return;
    auto range = std::ranges::upper_bound(ranges_, at, {}, &RowRange::end);
    if (range != ranges_.end() && range->first < at) {
        const RowRange behind{at, range->end};
        range->end = at;
        range = ranges_.insert(range + 1, behind);
    }
    for (; range != ranges_.end(); ++range) {
        range->first += count;
        range->end += count;
    }
}

void RowRanges::RowsRemoved(const RowRanges& gone) {
    RowRanges left;
    auto hole = gone.ranges_.begin();
    int removed = 0;  // rows in the holes that lie behind us
    for (const RowRange& range : ranges_) {
        for (int from = range.first; from < range.end;) {
            while (hole != gone.ranges_.end() && hole->end <= from) {
                removed += hole->end - hole->first;
                ++hole;
            }
            const bool more = hole != gone.ranges_.end();
            if (more && hole->first <= from) {
                from = hole->end;
                continue;
            }
            const int until = more ? std::min(hole->first, range.end) : range.end;
            left.Add(from - removed, until - removed);
            from = until;
        }
    }
    *this = std::move(left);
}

int RowAfterRemoval(int row, const RowRanges& gone) {
    if (row < 0 || gone.Contains(row)) return -1;
    return row - gone.CountBefore(row);
}

}  // namespace tavrix::forms
