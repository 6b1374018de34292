#include "imaging/vector/Painter.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "imaging/vector/BrushInk.h"
#include "imaging/vector/PaintSink.h"
#include "imaging/vector/PenShape.h"
#include "imaging/vector/Pixels.h"
#include "imaging/vector/Stroker.h"

namespace tavrix::vector {
namespace {

/// Lines are outlined and painted in pieces of so many points, so that the memory for it stays small.
constexpr std::size_t PointsAtOnce = std::size_t{1} << 16U;

Box BoundsOf(const FlatPath& path) {
    if (path.points.empty()) return {};
    const auto [left, right] = std::ranges::minmax(path.points, {}, &Point::x);
    const auto [top, bottom] = std::ranges::minmax(path.points, {}, &Point::y);
    return {left.x, top.y, right.x, bottom.y};
}

/// Takes a path apart into paths of a bounded number of points; figures that are too long become several open ones.
template <class Visitor>
void VisitPieces(const FlatPath& path, Visitor visit) {
    FlatPath piece;
    const auto flush = [&] {
        if (!piece.figures.empty()) visit(std::as_const(piece));
        piece = {};
    };
    const auto add = [&](std::span<const Point> points, bool closed) {
        piece.figures.push_back({piece.points.size(), points.size(), closed});
        piece.points.insert(piece.points.end(), points.begin(), points.end());
        if (piece.points.size() >= PointsAtOnce) flush();
    };
    for (const FlatPath::Figure& figure : path.figures) {
        auto points = path.PointsOf(figure);
        if (points.size() <= PointsAtOnce) {
            add(points, figure.closed);
            continue;
        }
        for (; points.size() > PointsAtOnce; points = points.subspan(PointsAtOnce - 1))
            add(points.first(PointsAtOnce), false);
        if (points.size() >= 2) add(points, false);
        if (figure.closed) {
            const std::array last{points.back(), path.PointsOf(figure).front()};
            add(last, false);
        }
    }
    flush();
}

}  // namespace

Painter::Painter(Surface& target, WorkBudget& budget)
    : target_(target), budget_(budget), clip_(PixelRect{0, 0, target.Width(), target.Height()}) {}

void Painter::SetClip(Region clip) noexcept {
    Guarded([&] { clip_ = clip.Combined(RegionMode::And, Region(Bounds()), budget_); });
}

void Painter::ClearClip() noexcept {
    Guarded([&] { clip_ = Region(Bounds()); });
}

Box Painter::ClipBox() const {
    const PixelRect clip = clip_.Bounds();
    return {double(clip.left), double(clip.top), double(clip.left) + clip.width,
            double(clip.top) + clip.height};
}

void Painter::FillFlat(const FlatPath& shape, FillRule rule, const Brush& brush, BinaryOperation operation) {
    if (brush.Null() || operation == BinaryOperation::Nop) return;
    const PixelRect bounds = Intersection(TouchedRect(BoundsOf(shape)), clip_.Bounds());
    if (bounds.width == 0 || bounds.height == 0) return;
    Rasteriser rasteriser(bounds, budget_);
    rasteriser.Add(shape);
    const auto scan = [&](auto ink, int cost, bool areas) {
        PaintSink sink(target_, clip_, budget_, cost, ink);
        if (areas)
            rasteriser.ScanAreas(rule, sink);
        else
            rasteriser.ScanCentres(rule, sink);
    };
    if (const auto solid = OpaqueInk(brush, operation)) {
        const Pixel colour = *solid;
        scan(
            [colour](int, int, Pixel below, unsigned coverage) {
                return coverage == 255 ? colour : Mixed(colour, below, coverage);
            },
            1, antialias_);
    } else if (const auto colour = brush.SolidColour()) {
        const Combiner combine(ToTernary(operation));
        scan([combine, colour = *colour](int, int, Pixel below,
                                         unsigned) { return combine(colour, 0, below); },
             2, false);
    } else {
        const BrushInk ink(brush, operation);
        scan(ink, ink.Cost(), antialias_ && IsOpaque(operation));
    }
}

void Painter::FillSnapped(const Path& path, FillRule rule, const Brush& brush, BinaryOperation operation,
                          double line) {
    const Path snapped = Snapped(path, {.line = line, .end = line, .fill = true});
    FillFlat(Flatten(snapped, ClipBox(), budget_), rule, brush, operation);
}

void Painter::Fill(const Path& path, FillRule rule, const Brush& brush, BinaryOperation operation) noexcept {
    Guarded([&] { FillSnapped(path, rule, brush, operation, 0); });
}

void Painter::StrokeShape(const Path& path, const PenShape& shape, const Brush& brush,
                          BinaryOperation operation) {
    Box seen = ClipBox();
    const double reach = shape.deviceWidth * 2 + 2;
    seen = {seen.left - reach, seen.top - reach, seen.right + reach, seen.bottom + reach};
    const FlatPath flat = Flatten(Snapped(path, shape.Grid()), seen, budget_);
    VisitPieces(flat, [&](const FlatPath& piece) {
        if (budget_.Exhausted()) return;
        FillFlat(OutlinesOf(piece, shape, seen, budget_), FillRule::NonZero, brush, operation);
    });
}

void Painter::Stroke(const Path& path, const Pen& pen, const Affine& penToDevice,
                     BinaryOperation operation) noexcept {
    if (pen.brush.Null()) return;
    Guarded([&] {
        const PenShape shape = ShapeOf(pen, penToDevice);
        if (pen.gaps && !shape.dashes.empty()) {
            PenShape solid = shape;
            solid.dashes.clear();
            StrokeShape(path, solid, Brush::Solid(*pen.gaps), operation);
        }
        StrokeShape(path, shape, pen.brush, operation);
    });
}

void Painter::FillAndStroke(const Path& path, FillRule rule, const Brush& brush, const Pen& pen,
                            const Affine& penToDevice, BinaryOperation operation) noexcept {
    Guarded([&] {
        const bool covered = !pen.brush.Null() && (pen.dashes.empty() || pen.gaps) && IsOpaque(operation);
        FillSnapped(path, rule, brush, operation, covered ? ShapeOf(pen, penToDevice).Grid().line : 0);
    });
    Stroke(path, pen, penToDevice, operation);
}

void Painter::FillRegion(const Region& region, const Brush& brush, BinaryOperation operation) noexcept {
    if (brush.Null() || operation == BinaryOperation::Nop) return;
    Guarded([&] {
        const BrushInk ink(brush, operation);
        ClipRows rows(region);
        VisitClipped(clip_, region.Bounds(), [&](int y, int left, int right) {
            rows.Visit(y, left, right, [&](int from, int to) {
                if (!budget_.Spend(ink.Cost() * (to - from) + 16)) return;
                const auto row = target_.Row(y);
                for (int x = from; x < to; ++x) {
                    Pixel& pixel = row[static_cast<std::size_t>(x)];
                    pixel = ink(x, y, pixel, 255);
                }
            });
        });
    });
}

void Painter::SetPixel(int x, int y, Pixel pixel, BinaryOperation operation) noexcept {
    if (!budget_.Spend(64) || !clip_.Contains(x, y)) return;
    Pixel& there = target_.Row(y)[static_cast<std::size_t>(x)];
    there = Combine(ToTernary(operation), pixel, 0, there);
}

void Painter::DrawText(const TextRun& run, const Affine& textToDevice, const Brush& brush,
                       BinaryOperation operation) noexcept {
    Guarded([&] {
        if (!budget_.Spend(OutlineCost(run))) return;
        const Path outline = OutlineOf(run, textToDevice);
        FillFlat(Flatten(outline, ClipBox(), budget_), FillRule::NonZero, brush, operation);
    });
}

}  // namespace tavrix::vector
