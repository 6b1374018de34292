#include "imaging/vector/RegionBuilder.h"

#include <algorithm>
#include <utility>

namespace tavrix::vector {
namespace {

// Much more than the time that it takes, since the memory stays for as long as the clip is kept.
constexpr std::int64_t SpanCost = 256;
constexpr std::int64_t RowCost = 64;

}  // namespace

void RegionBuilder::AddSpan(int left, int right) {
    if (!complete_ || right <= left) return;
    if (data_.spans.size() > rowStart_ && data_.spans.back().right >= left) {
        data_.spans.back().right = std::max(data_.spans.back().right, right);
        return;
    }
    data_.spans.push_back({left, right});
}

void RegionBuilder::EndRow(int top, int bottom) {
    const std::size_t count = data_.spans.size() - rowStart_;
    complete_ = complete_ && budget_.Spend(RowCost) && data_.spans.size() <= MaxSpans;
    if (!complete_ || count == 0 || top >= bottom) {
        data_.spans.resize(rowStart_);
        return;
    }
    const auto row = std::span<const Region::Span>(data_.spans).subspan(rowStart_);
    if (!data_.bands.empty()) {
        Region::Band& above = data_.bands.back();
        const auto rowAbove = std::span<const Region::Span>(data_.spans).subspan(above.first, above.count);
        if (above.bottom == top && std::ranges::equal(rowAbove, row)) {
            above.bottom = bottom;
            data_.spans.resize(rowStart_);
            return;
        }
    }
    const bool first = data_.bands.empty();
    data_.left = first ? row.front().left : std::min(data_.left, row.front().left);
    data_.right = first ? row.back().right : std::max(data_.right, row.back().right);
    data_.bands.push_back(
        {top, bottom, static_cast<std::uint32_t>(rowStart_), static_cast<std::uint32_t>(count)});
    rowStart_ = data_.spans.size();
    budget_.Spend(SpanCost * static_cast<std::int64_t>(count));
}

Region RegionBuilder::Build() {
    Region region;
    data_.spans.resize(rowStart_);
    if (!data_.bands.empty()) region.data_ = std::make_shared<const Region::Data>(std::move(data_));
    return region;
}

}  // namespace tavrix::vector
