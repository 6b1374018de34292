#include "platform/forms/LayoutSolver.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace tavrix::forms {

namespace {

/// A stretch of one direction that something takes.
struct Span {
    int start = 0;
    int length = 0;
};

/// What something asks for in one direction.
struct Wish {
    int natural = 0;
    int least = 0;
    Slack slack = Slack::Centred;
    int share = 0;
    int gapBefore = 0;
};

/// Divides a length by weights, to whole numbers that add up to it.
class Division {
  public:
    Division(std::int64_t length, std::int64_t weights) : length_(length), weights_(weights) {}

    int Next(std::int64_t weight) {
        weight_ += weight;
        const std::int64_t end = weights_ > 0 ? (length_ * weight_ + weights_ / 2) / weights_ : 0;
        return static_cast<int>(end - std::exchange(given_, end));
    }

  private:
    std::int64_t length_;
    std::int64_t weights_;
    std::int64_t weight_ = 0;
    std::int64_t given_ = 0;
};

int Sum(std::span<const Wish> wishes) {
    int sum = 0;
    for (const Wish& wish : wishes)
        sum += wish.gapBefore + wish.natural;
    return sum;
}

/// The weights with which the wishes take part in what is left.
std::vector<int> WeightsOf(std::span<const Wish> wishes) {
    const bool shares = std::ranges::any_of(wishes, [](const Wish& wish) { return wish.share > 0; });
    Slack strongest = Slack::Centred;
    for (const Wish& wish : wishes)
        strongest = std::max(strongest, wish.slack);
    std::vector<int> weights;
    for (const Wish& wish : wishes) {
        const bool takesPart = strongest != Slack::Centred && wish.slack == strongest;
        weights.push_back(shares ? wish.share : takesPart ? 1 : 0);
    }
    return weights;
}

/// Lengths in the ratio of their weights, as far as none becomes less than it needs.
void Grow(std::span<const Wish> wishes, std::vector<int> weights, int extra, std::vector<int>& lengths) {
    std::int64_t pool = extra;
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < wishes.size(); ++i) {
        if (weights[i] > 0) pool += wishes[i].natural;
        sum += weights[i];
    }
    for (bool settled = false; !settled;) {
        settled = true;
        for (std::size_t i = 0; i < wishes.size(); ++i) {
            if (weights[i] == 0 || wishes[i].natural * sum <= pool * weights[i]) continue;
            pool -= wishes[i].natural;
            sum -= weights[i];
            weights[i] = 0;
            settled = false;
        }
    }
    Division division(pool, sum);
    for (std::size_t i = 0; i < wishes.size(); ++i) {
        if (weights[i] > 0) lengths[i] = division.Next(weights[i]);
    }
}

void Shrink(std::span<const Wish> wishes, int missing, std::vector<int>& lengths) {
    int room = 0;
    for (const Wish& wish : wishes)
        room += wish.natural - wish.least;
    Division division(std::min(missing, room), room);
    for (std::size_t i = 0; i < wishes.size(); ++i)
        lengths[i] -= division.Next(wishes[i].natural - wishes[i].least);
}

std::vector<Span> Distribute(std::span<const Wish> wishes, int start, int space) {
    std::vector<int> lengths;
    for (const Wish& wish : wishes)
        lengths.push_back(wish.natural);
    const int extra = space - Sum(wishes);
    const std::vector<int> weights = WeightsOf(wishes);
    const bool grows = std::ranges::any_of(weights, [](int weight) { return weight > 0; });
    if (extra < 0) Shrink(wishes, -extra, lengths);
    if (extra > 0 && grows) Grow(wishes, weights, extra, lengths);
    Division air(extra > 0 && !grows ? extra : 0, static_cast<std::int64_t>(wishes.size()) + 1);
    std::vector<Span> spans;
    int at = start;
    for (std::size_t i = 0; i < wishes.size(); ++i) {
        at += wishes[i].gapBefore + air.Next(1);
        spans.push_back({at, lengths[i]});
        at += lengths[i];
    }
    return spans;
}

/// What a wish makes of a space that is given to it alone.
Span Within(const Wish& wish, const Span& space) {
    if (wish.slack != Slack::Centred || wish.natural >= space.length) return space;
    return {space.start + (space.length - wish.natural) / 2, wish.natural};
}

enum class Direction : std::uint8_t { Across, Down };

/// A part of the layout while it is solved: first all that concerns widths, then the heights, which depend on them.
class Part {
  public:
    Part(const Layout& layout, const LayoutMetrics& metrics) : layout_(layout), metrics_(metrics) {
        if (layout.item != nullptr) needs_ = layout.item->Needs();
        if (layout.kind == Layout::Kind::Group) border_ = layout.item->Border();
        for (const Layout& inner : layout.content)
            parts_.emplace_back(inner, metrics);
    }

    void MeasureAcross() {
        for (Part& part : parts_)
            part.MeasureAcross();
        across_ = Measured(Direction::Across, needs_.natural.width, needs_.across);
        Demand(across_, layout_.minWidth, metrics_.twipsPerPixelX);
    }

    /// All widths are known.
    void MeasureDown() {
        for (Part& part : parts_)
            part.MeasureDown();
        const bool leaf = layout_.kind == Layout::Kind::Item;
        const int height = leaf ? layout_.item->HeightAt(width_.length) : needs_.natural.height;
        down_ = Measured(Direction::Down, height, needs_.down);
        Demand(down_, layout_.minHeight, metrics_.twipsPerPixelY);
    }

    void PlaceAcross(const Span& width) {
        width_ = width;
        PlaceParts(Direction::Across,
                   {width.start + border_.left, width.length - border_.left - border_.right});
    }

    void PlaceDown(const Span& height) {
        height_ = height;
        PlaceParts(Direction::Down,
                   {height.start + border_.top, height.length - border_.top - border_.bottom});
    }

    [[nodiscard]] const Wish& Of(Direction direction) const {
        return direction == Direction::Across ? across_ : down_;
    }

    void Collect(std::vector<PlacedItem>& placed) const {
        if (layout_.item != nullptr) {
            placed.push_back({layout_.item, {width_.start, height_.start, width_.length, height_.length}});
        }
        for (const Part& part : parts_)
            part.Collect(placed);
    }

  private:
    [[nodiscard]] bool IsStretch() const { return layout_.kind == Layout::Kind::Stretch; }
    [[nodiscard]] bool InGrid() const {
        return layout_.kind == Layout::Kind::Grid || layout_.kind == Layout::Kind::Cells;
    }
    [[nodiscard]] Direction Main() const {
        return layout_.kind == Layout::Kind::Row ? Direction::Across : Direction::Down;
    }
    [[nodiscard]] int Gap(Direction direction) const {
        if (layout_.kind == Layout::Kind::Cells) return layout_.gap;
        return direction == Direction::Across ? metrics_.across : metrics_.down;
    }

    /// At least so much. A text that yields asks for just this, and a list may become so small.
    void Demand(Wish& wish, float twips, float twipsPerPixel) const {
        const int least = static_cast<int>(std::ceil(twips / twipsPerPixel));
        if (least <= 0) return;
        const bool yields = needs_.yields && &wish == &across_;
        if (yields) wish.natural = wish.least = least;
        if (layout_.kind == Layout::Kind::Item && wish.slack == Slack::Wanted) wish.least = least;
        wish.natural = std::max(wish.natural, least);
        wish.least = std::max(wish.least, least);
    }

    [[nodiscard]] Wish Measured(Direction direction, int natural, Slack slack) const {
        if (layout_.kind == Layout::Kind::Item) return {natural, natural, slack, 0, 0};
        if (IsStretch()) return {0, 0, Slack::Filled, 0, 0};
        const std::vector<Wish> wishes = InGrid()              ? Lines(direction)
                                         : Main() == direction ? Chain(direction)
                                                               : std::vector{Beside(direction)};
        Wish whole{Sum(wishes), 0, Slack::Centred, 0, 0};
        for (const Wish& wish : wishes) {
            whole.least += wish.gapBefore + wish.least;
            whole.slack = std::max(whole.slack, wish.share > 0 ? Slack::Wanted : wish.slack);
        }
        if (layout_.kind != Layout::Kind::Group) return whole;
        const int edges =
            direction == Direction::Across ? border_.left + border_.right : border_.top + border_.bottom;
        whole.natural = std::max(whole.natural + edges, natural);
        whole.least = std::max(whole.least + edges, natural);
        whole.slack = std::max(whole.slack, Slack::Filled);
        return whole;
    }

    /// The parts one behind the other. A stretch has no gaps of its own.
    [[nodiscard]] std::vector<Wish> Chain(Direction direction) const {
        std::vector<Wish> wishes;
        bool first = true;
        for (const Part& part : parts_) {
            Wish wish = part.Of(direction);
            wish.share = part.layout_.share;
            if (part.IsStretch()) wish.slack = Slack::Wanted;
            if (!part.IsStretch()) wish.gapBefore = std::exchange(first, false) ? 0 : Gap(direction);
            wishes.push_back(wish);
        }
        return wishes;
    }

    /// The parts beside each other: what the most demanding one asks for.
    [[nodiscard]] Wish Beside(Direction direction) const {
        Wish most;
        for (const Part& part : parts_) {
            if (part.IsStretch()) continue;
            const Wish& wish = part.Of(direction);
            most.natural = std::max(most.natural, wish.natural);
            most.least = std::max(most.least, wish.least);
            most.slack = std::max(most.slack, wish.slack);
        }
        return most;
    }

    /// The columns or the rows of a grid.
    [[nodiscard]] std::vector<Wish> Lines(Direction direction) const {
        const auto columns = static_cast<std::size_t>(std::max(layout_.columns, 1));
        const std::size_t rows = (parts_.size() + columns - 1) / columns;
        std::vector<Wish> lines(direction == Direction::Across ? std::min(columns, parts_.size()) : rows);
        for (std::size_t i = 0; i < parts_.size(); ++i) {
            Wish& line = lines[LineOf(i, direction)];
            const Wish& wish = parts_[i].Of(direction);
            line.natural = std::max(line.natural, wish.natural);
            line.least = std::max(line.least, wish.least);
            line.slack = std::max(line.slack, wish.slack);
            if (direction == Direction::Across) line.share = std::max(line.share, parts_[i].layout_.share);
        }
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (i > 0) lines[i].gapBefore = Gap(direction);
            if (layout_.kind != Layout::Kind::Cells) continue;
            lines[i].natural = lines[i].least =
                direction == Direction::Across ? layout_.cell.width : layout_.cell.height;
            lines[i].slack = Slack::Centred;
            lines[i].share = 0;
        }
        return lines;
    }

    [[nodiscard]] std::size_t LineOf(std::size_t part, Direction direction) const {
        const auto columns = static_cast<std::size_t>(std::max(layout_.columns, 1));
        return direction == Direction::Across ? part % columns : part / columns;
    }

    void Place(Direction direction, const Span& span) {
        direction == Direction::Across ? PlaceAcross(span) : PlaceDown(span);
    }

    void PlaceParts(Direction direction, const Span& space) {
        if (parts_.empty()) return;
        if (InGrid()) {
            const std::vector<Span> lines = Distribute(Lines(direction), space.start, space.length);
            for (std::size_t i = 0; i < parts_.size(); ++i) {
                const Span& line = lines[LineOf(i, direction)];
                const bool whole = layout_.kind == Layout::Kind::Cells;
                parts_[i].Place(direction, whole ? line : Within(parts_[i].Of(direction), line));
            }
        } else if (Main() == direction) {
            const std::vector<Span> spans = Distribute(Chain(direction), space.start, space.length);
            for (std::size_t i = 0; i < parts_.size(); ++i)
                parts_[i].Place(direction, spans[i]);
        } else {
            for (Part& part : parts_)
                part.Place(direction, Within(part.Of(direction), space));
        }
    }

    const Layout& layout_;
    const LayoutMetrics& metrics_;
    LayoutNeeds needs_;
    PixelInsets border_;
    std::vector<Part> parts_;
    Wish across_;
    Wish down_;
    Span width_;
    Span height_;
};

}  // namespace

PixelSize NaturalSizeOf(const Layout& layout, const LayoutMetrics& metrics) {
    Part whole(layout, metrics);
    whole.MeasureAcross();
    const int width = whole.Of(Direction::Across).natural;
    whole.PlaceAcross({0, width});
    whole.MeasureDown();
    const PixelInsets& margins = metrics.margins;
    return {margins.left + width + margins.right,
            margins.top + whole.Of(Direction::Down).natural + margins.bottom};
}

std::vector<PlacedItem> Solve(const Layout& layout, const LayoutMetrics& metrics, const PixelSize& inside) {
    const PixelInsets& margins = metrics.margins;
    Part whole(layout, metrics);
    whole.MeasureAcross();
    whole.PlaceAcross({margins.left, std::max(inside.width - margins.left - margins.right, 0)});
    whole.MeasureDown();
    whole.PlaceDown({margins.top, std::max(inside.height - margins.top - margins.bottom, 0)});
    std::vector<PlacedItem> placed;
    whole.Collect(placed);
    return placed;
}

}  // namespace tavrix::forms
