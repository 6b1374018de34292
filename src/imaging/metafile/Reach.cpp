#include "imaging/metafile/Reach.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include "imaging/metafile/Replay.h"
#include "imaging/metafile/TextPlacement.h"

namespace tavrix::metafile {
namespace {

/// Nanoseconds, roughly, that laying out texts may cost; those behind are left away.
constexpr std::int64_t MostWork = 500'000'000;

/// The corners of the box around all places that records draw at.
class Reach {
  public:
    void Add(Point point) {
        box_.left = std::min(box_.left, point.x);
        box_.top = std::min(box_.top, point.y);
        box_.right = std::max(box_.right, point.x);
        box_.bottom = std::max(box_.bottom, point.y);
    }
    void Add(const Box& box) {
        Add(Point{box.left, box.top});
        Add(Point{box.right, box.bottom});
    }
    void Add(std::span<const Point> points) {
        for (const Point point : points)
            Add(point);
    }
    /// What is drawn on the pixels from a corner on, without the one that its size leads to.
    void Add(Point corner, Point size) {
        const auto last = [](std::int32_t from, std::int32_t length) {
            const std::int64_t end = std::int64_t{from} + length;
            return static_cast<std::int32_t>(
                std::clamp<std::int64_t>(length > 0 ? end - 1 : end, -Most, Most));
        };
        Add(corner);
        Add(Point{last(corner.x, size.x), last(corner.y, size.y)});
    }
    void Add(const vector::Box& box) {
        const auto number = [](double value) {
            return static_cast<std::int32_t>(std::clamp(value, double(-Most), double(Most)));
        };
        Add(Box{number(std::floor(box.left)), number(std::floor(box.top)), number(std::ceil(box.right) - 1),
                number(std::ceil(box.bottom) - 1)});
    }
    [[nodiscard]] const Box& Get() const { return box_; }

  private:
    static constexpr std::int64_t Most = 1LL << 20U;

    Box box_;
};

/// A device that draws nothing, but knows what a text needs.
class TextMeasure {
  public:
    TextMeasure(ByteSource& source, const Cancellation& sink)
        : picture_(1, 1),
          budget_(MostWork),
          painter_(picture_, budget_),
          context_(painter_, place_, source, sink) {
        place_.width = place_.height = 1;
    }

    /// Records that change what texts look like and where they stand.
    template <class Kind>
    void Follow(const Kind& record) {
        Replay(context_, record);
    }
    /// The box of a text in logical units; nothing where there is no font.
    [[nodiscard]] std::optional<vector::Box> BoxOf(const Text& text) {
        const bool updates = (context_.State().textAlign & DeviceState::AlignUpdatesPosition) != 0;
        const Point at = text.at;
        const vector::Point reference =
            updates ? context_.State().position : vector::Point{double(at.x), double(at.y)};
        const PlacedText placed = PlaceText(context_, text, reference);
        const auto back = context_.ToPicture().Inverse();
        const vector::Path cells = vector::CellsOf(placed.run, placed.toPicture);
        if (!back || cells.Empty()) return std::nullopt;
        return cells.Transformed(*back).Bounds();
    }

  private:
    Surface picture_;
    vector::WorkBudget budget_;
    vector::Painter painter_;
    metafile::Placement place_;
    DeviceContext context_;
};

struct ReachVisitor {
    Reach& reach;
    TextMeasure& texts;

    void operator()(const LineTo& line) const { AddPlace(line, line.to); }
    void operator()(const MoveTo& move) const { AddPlace(move, move.to); }
    void operator()(const PolyShape& poly) const { reach.Add(poly.points); }
    void operator()(const PolyPolyShape& several) const { reach.Add(several.points); }
    void operator()(const BoxShape& shape) const { reach.Add(shape.box); }
    void operator()(const RoundBox& round) const { reach.Add(round.box); }
    void operator()(const ArcShape& arc) const { reach.Add(arc.box); }
    void operator()(const SetPixelColour& pixel) const { reach.Add(pixel.at); }
    void operator()(const std::unique_ptr<const Blit>& blit) const { reach.Add(blit->to, blit->toSize); }
    void operator()(const std::unique_ptr<const DrawDib>& dib) const { reach.Add(dib->to, dib->toSize); }
    void operator()(const std::unique_ptr<const Text>& text) const {
        reach.Add(text->at);
        if ((text->options & Text::Opaque) != 0) reach.Add(text->box);
        if (const auto box = texts.BoxOf(*text)) reach.Add(*box);
        texts.Follow(text);
    }

    void operator()(const SetValue& record) const { texts.Follow(record); }
    void operator()(const SetTextJustification& record) const { texts.Follow(record); }
    void operator()(const SetFrame& record) const { texts.Follow(record); }
    void operator()(const ScaleExtent& record) const { texts.Follow(record); }
    void operator()(const SaveState& record) const { texts.Follow(record); }
    void operator()(const RestoreState& record) const { texts.Follow(record); }
    void operator()(const CreateObject& record) const { texts.Follow(record); }
    void operator()(const SelectObject& record) const { texts.Follow(record); }
    void operator()(const DeleteObject& record) const { texts.Follow(record); }
    /// Others draw where these have been, or do not draw.
    template <class Kind>
    void operator()(const Kind&) const {}

  private:
    template <class Kind>
    void AddPlace(const Kind& record, Point to) const {
        reach.Add(to);
        texts.Follow(record);
    }
};

}  // namespace

Box ReachOf(std::span<const Record> records, ByteSource& source, const Cancellation& sink) {
    Reach reach;
    TextMeasure texts(source, sink);
    for (const Record& record : records) {
        if (sink.Cancelled()) break;
        std::visit(ReachVisitor{reach, texts}, record);
    }
    return reach.Get();
}

}  // namespace tavrix::metafile
