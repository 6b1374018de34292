// The operations of the painter that draw bitmaps.
#include <algorithm>

#include "imaging/vector/ClipRows.h"
#include "imaging/vector/PaintSink.h"
#include "imaging/vector/Painter.h"
#include "imaging/vector/Pixels.h"
#include "imaging/vector/Placement.h"

namespace tavrix::vector {
namespace {

constexpr Pixel Colours = 0x00FFFFFFU;

/// Calls visit(x, y, pixel that is there, bitmap's pixel, its place) for each pixel that the bitmap covers in the clip.
template <class Visitor>
void VisitPlaced(Surface& target, const Region& clip, WorkBudget& budget, const PlacedBitmap& source,
                 Visitor visit) {
    const Placement placement(source, clip.Bounds());
    const PixelRect& area = placement.Area();
    if (area.width == 0 || area.height == 0 || !budget.Spend(placement.Cost())) return;
    VisitClipped(clip, area, [&](int y, int from, int to) {
        const auto row = target.Row(y);
        placement.VisitRow(y, from, to, [&](int x, Pixel pixel, Placement::Place place) {
            visit(x, y, row[static_cast<std::size_t>(x)], pixel, place);
        });
    });
}

/// Whether a pixel of a mask lets the operation through. What lies outside the mask does.
bool Lets(const BlitMask& mask, Placement::Place place) {
    const std::int64_t column = std::int64_t{place.column} + mask.offsetX;
    const std::int64_t row = std::int64_t{place.row} + mask.offsetY;
    if (column < 0 || row < 0 || column >= mask.bitmap->Width() || row >= mask.bitmap->Height()) return true;
    return (mask.bitmap->Row(static_cast<int>(row))[static_cast<std::size_t>(column)] & Colours) != 0;
}

/// Each channel times a part of 255.
Pixel Scaled(Pixel pixel, unsigned part) {
    Pixel result = 0;
    for (unsigned shift = 0; shift < 32; shift += 8)
        result |= ((((pixel >> shift) & 0xFFU) * part + 127U) / 255U) << shift;
    return result;
}

/// Colours that are multiplied with their alpha already, over an opaque pixel.
Pixel PremultipliedOver(Pixel pixel, Pixel below) {
    const unsigned rest = 255U - (pixel >> 24U);
    Pixel result = 0xFF000000U;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        const unsigned sum = ((pixel >> shift) & 0xFFU) + (((below >> shift) & 0xFFU) * rest + 127U) / 255U;
        result |= std::min(sum, 255U) << shift;
    }
    return result;
}

}  // namespace

void Painter::PatternBlit(const Box& box, const Brush& brush, TernaryOperation operation) noexcept {
    if (operation == DestinationKept || (UsesBrush(operation) && brush.Null())) return;
    Guarded([&] {
        const Combiner combine(operation);
        const BrushPixels pixels(brush);
        const auto one = UsesBrush(operation) ? brush.SolidColour() : Pixel{0};
        VisitClipped(clip_, NearestRect(box), [&](int y, int from, int to) {
            if (!budget_.Spend((one ? 1 : 12) * (to - from) + 16)) return;
            const auto row =
                target_.Row(y).subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
            if (one) {
                for (Pixel& pixel : row)
                    pixel = combine(*one, 0, pixel);
                return;
            }
            int x = from;
            for (Pixel& pixel : row)
                if (const auto ink = pixels.At(x++, y)) pixel = combine(*ink, 0, pixel);
        });
    });
}

void Painter::PatternBlit(const Box& box, const Affine& map, const Brush& brush,
                          TernaryOperation operation) noexcept {
    Path outline;
    Guarded([&] {
        outline.AddBox(box);
        outline = outline.Transformed(map);
    });
    if (map.KeepsBoxes()) {
        PatternBlit(outline.Bounds(), brush, operation);
        return;
    }
    if (operation == DestinationKept || (UsesBrush(operation) && brush.Null())) return;
    Guarded([&] {
        Rasteriser rasteriser(Intersection(TouchedRect(outline.Bounds()), clip_.Bounds()), budget_);
        rasteriser.Add(Flatten(outline, ClipBox(), budget_));
        const BrushPixels pixels(brush);
        const Combiner combine(operation);
        PaintSink sink(target_, clip_, budget_, 12, [&](int x, int y, Pixel below, unsigned) {
            const auto ink = UsesBrush(operation) ? pixels.At(x, y) : Pixel{0};
            return ink ? combine(*ink, 0, below) : below;
        });
        rasteriser.ScanCentres(FillRule::NonZero, sink);
    });
}

void Painter::Blit(const PlacedBitmap& source, TernaryOperation operation, const Brush& brush,
                   const BlitMask& mask) noexcept {
    const bool masked = mask.bitmap != nullptr && !mask.bitmap->Empty();
    if (operation == DestinationKept && !masked) return;
    Guarded([&] {
        if (operation == SourceCopy && !masked) {
            VisitPlaced(
                target_, clip_, budget_, source,
                [](int, int, Pixel& there, Pixel pixel, Placement::Place) { there = pixel | ~Colours; });
            return;
        }
        const BrushPixels pixels(brush);
        const Combiner combine(operation);
        const Combiner combineOtherwise(mask.otherwise);
        VisitPlaced(target_, clip_, budget_, source,
                    [&](int x, int y, Pixel& there, Pixel pixel, Placement::Place place) {
                        const bool lets = !masked || Lets(mask, place);
                        const TernaryOperation chosen = lets ? operation : mask.otherwise;
                        if (chosen == DestinationKept) return;
                        const auto ink = UsesBrush(chosen) ? pixels.At(x, y) : Pixel{0};
                        if (ink) there = (lets ? combine : combineOtherwise)(*ink, pixel, there);
                    });
    });
}

void Painter::AlphaBlit(const PlacedBitmap& source, unsigned constantAlpha, bool perPixel) noexcept {
    const unsigned part = std::min(constantAlpha, 255U);
    if (part == 0) return;
    Guarded([&] {
        VisitPlaced(target_, clip_, budget_, source,
                    [&](int, int, Pixel& there, Pixel pixel, Placement::Place) {
                        if (!perPixel)
                            there = Mixed(pixel, there, part);
                        else
                            there = PremultipliedOver(part == 255 ? pixel : Scaled(pixel, part), there);
                    });
    });
}

void Painter::TransparentBlit(const PlacedBitmap& source, Pixel transparent) noexcept {
    Guarded([&] {
        // A mean of two colours is neither of them, so that each pixel is taken as it is.
        PlacedBitmap exact = source;
        exact.mode = StretchMode::Nearest;
        VisitPlaced(target_, clip_, budget_, exact,
                    [&](int, int, Pixel& there, Pixel pixel, Placement::Place) {
                        if (((pixel ^ transparent) & Colours) != 0) there = pixel | ~Colours;
                    });
    });
}

}  // namespace tavrix::vector
