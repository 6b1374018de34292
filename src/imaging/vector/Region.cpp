#include "imaging/vector/Region.h"

#include <algorithm>
#include <limits>

#include "imaging/vector/Rasteriser.h"
#include "imaging/vector/RegionBuilder.h"

namespace tavrix::vector {
namespace {

constexpr std::int64_t Farthest = std::int64_t{1} << 26U;

int Kept(std::int64_t coordinate) {
    return static_cast<int>(std::clamp(coordinate, -Farthest, Farthest));
}

bool Holds(RegionMode mode, bool a, bool b) {
    switch (mode) {
        case RegionMode::And:
            return a && b;
        case RegionMode::Or:
            return a || b;
        case RegionMode::Xor:
            return a != b;
        case RegionMode::Difference:
            return a && !b;
        case RegionMode::Copy:
            return b;
    }
    return false;
}

/// Walks along the borders of two rows at once and gives the spans where the mode holds.
void CombineRows(RegionMode mode, std::span<const Region::Span> a, std::span<const Region::Span> b,
                 RegionBuilder& builder) {
    constexpr int End = std::numeric_limits<int>::max();
    const auto border = [](std::span<const Region::Span> row, std::size_t at) {
        if (at >= row.size() * 2) return End;
        return at % 2 == 0 ? row[at / 2].left : row[at / 2].right;
    };
    std::size_t i = 0;
    std::size_t j = 0;
    int start = 0;
    bool held = false;
    for (int x = std::min(border(a, 0), border(b, 0)); x != End; x = std::min(border(a, i), border(b, j))) {
        if (border(a, i) == x) ++i;
        if (border(b, j) == x) ++j;
        const bool holds = Holds(mode, i % 2 != 0, j % 2 != 0);
        if (holds && !held) start = x;
        if (!holds && held) builder.AddSpan(start, x);
        held = holds;
    }
}

/// Makes a region of what a shape covers.
class RegionSink : public CoverageSink {
  public:
    explicit RegionSink(RegionBuilder& builder) : builder_(builder) {}

    void Run(int y, int x, int count, std::uint8_t) override {
        if (y != row_) EndRow();
        row_ = y;
        builder_.AddSpan(x, x + count);
    }
    void EndRow() { builder_.EndRow(row_, row_ + 1); }

  private:
    RegionBuilder& builder_;
    int row_ = 0;
};

Region UnionOf(std::span<const Region> regions, WorkBudget& budget) {
    if (regions.empty()) return {};
    if (regions.size() == 1) return regions.front();
    const std::size_t half = regions.size() / 2;
    return UnionOf(regions.first(half), budget)
        .Combined(RegionMode::Or, UnionOf(regions.subspan(half), budget), budget);
}

}  // namespace

Region::Region(const PixelRect& rect) {
    const std::int64_t right = std::int64_t{rect.left} + rect.width;
    const std::int64_t bottom = std::int64_t{rect.top} + rect.height;
    const Span columns{Kept(std::min<std::int64_t>(rect.left, right)),
                       Kept(std::max<std::int64_t>(rect.left, right))};
    const Span rows{Kept(std::min<std::int64_t>(rect.top, bottom)),
                    Kept(std::max<std::int64_t>(rect.top, bottom))};
    if (columns.left == columns.right || rows.left == rows.right) return;
    Data data;
    data.bands.push_back({rows.left, rows.right, 0, 1});
    data.spans.push_back(columns);
    data.left = columns.left;
    data.right = columns.right;
    data_ = std::make_shared<const Data>(std::move(data));
}

Region Region::Of(const Path& path, FillRule rule, const PixelRect& bounds, WorkBudget& budget) {
    const Box box{double(bounds.left), double(bounds.top), double(bounds.left) + bounds.width,
                  double(bounds.top) + bounds.height};
    Rasteriser rasteriser(bounds, budget);
    rasteriser.Add(Flatten(path, box, budget));
    RegionBuilder builder(budget);
    RegionSink sink(builder);
    rasteriser.ScanCentres(rule, sink);
    sink.EndRow();
    return builder.Build();
}

Region Region::Of(std::span<const PixelRect> rects, WorkBudget& budget) {
    if (!budget.Spend(static_cast<std::int64_t>(rects.size()) * 64)) return {};
    std::vector<Region> regions;
    regions.reserve(rects.size());
    for (const PixelRect& rect : rects)
        regions.emplace_back(rect);
    return UnionOf(regions, budget);
}

Region Region::Combined(RegionMode mode, const Region& other, WorkBudget& budget) const {
    if (mode == RegionMode::Copy) return other;
    RegionBuilder builder(budget);
    const std::vector<Band> none;
    const auto& a = data_ ? data_->bands : none;
    const auto& b = other.data_ ? other.data_->bands : none;
    constexpr int End = std::numeric_limits<int>::max();
    std::size_t i = 0;
    std::size_t j = 0;
    int top = std::numeric_limits<int>::min();
    // From one border between bands, of either region, to the next.
    while ((i < a.size() || j < b.size()) && builder.Complete()) {
        const auto begin = [&](const std::vector<Band>& bands, std::size_t at) {
            return at < bands.size() ? std::max(bands[at].top, top) : End;
        };
        top = std::min(begin(a, i), begin(b, j));
        const bool inA = i < a.size() && a[i].top <= top;
        const bool inB = j < b.size() && b[j].top <= top;
        int bottom = End;
        if (i < a.size()) bottom = std::min(bottom, inA ? a[i].bottom : a[i].top);
        if (j < b.size()) bottom = std::min(bottom, inB ? b[j].bottom : b[j].top);
        const auto rowA = inA ? SpansOf(a[i]) : std::span<const Span>();
        const auto rowB = inB ? other.SpansOf(b[j]) : std::span<const Span>();
        budget.Spend(static_cast<std::int64_t>(rowA.size() + rowB.size()) * 8);
        CombineRows(mode, rowA, rowB, builder);
        builder.EndRow(top, bottom);
        top = bottom;
        if (i < a.size() && a[i].bottom <= top) ++i;
        if (j < b.size() && b[j].bottom <= top) ++j;
    }
    return builder.Complete() ? builder.Build() : *this;
}

Region Region::Shifted(int dx, int dy, WorkBudget& budget) const {
    if (!data_) return {};
    RegionBuilder builder(budget);
    for (const Band& band : data_->bands) {
        for (const Span& span : SpansOf(band))
            builder.AddSpan(Kept(std::int64_t{span.left} + dx), Kept(std::int64_t{span.right} + dx));
        builder.EndRow(Kept(std::int64_t{band.top} + dy), Kept(std::int64_t{band.bottom} + dy));
    }
    return builder.Build();
}

bool Region::Contains(int x, int y) const {
    const auto row = Row(y);
    const auto after = std::ranges::upper_bound(row, x, {}, &Span::left);
    return after != row.begin() && x < std::prev(after)->right;
}

PixelRect Region::Bounds() const {
    if (!data_) return {};
    const int top = data_->bands.front().top;
    return {data_->left, top, data_->right - data_->left, data_->bands.back().bottom - top};
}

std::span<const Region::Span> Region::Row(int y) const {
    if (!data_) return {};
    const auto band = std::ranges::upper_bound(data_->bands, y, {}, &Band::bottom);
    if (band == data_->bands.end() || y < band->top) return {};
    return SpansOf(*band);
}

std::size_t Region::Size() const {
    return data_ ? data_->bands.size() + data_->spans.size() : 0;
}

bool operator==(const Region& a, const Region& b) {
    if (a.data_ == b.data_) return true;
    return a.data_ && b.data_ && *a.data_ == *b.data_;
}

std::span<const Region::Span> Region::SpansOf(const Band& band) const {
    return std::span(data_->spans).subspan(band.first, band.count);
}

}  // namespace tavrix::vector
