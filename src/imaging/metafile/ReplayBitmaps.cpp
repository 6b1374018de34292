#include <algorithm>
#include <cmath>

#include "imaging/metafile/Figures.h"
#include "imaging/metafile/Pixels.h"
#include "imaging/metafile/Replay.h"

namespace tavrix::metafile {
namespace {

constexpr std::uint32_t StretchHalftone = 4;

vector::TernaryOperation Ternary(std::uint32_t operation) {
    return static_cast<vector::TernaryOperation>(operation >> 16U);
}

/// A corner and a size; sizes below 0 reach the other way, which mirrors.
vector::Box BoxOf(Point corner, Point size) {
    return {double(corner.x), double(corner.y), double(corner.x) + size.x, double(corner.y) + size.y};
}

vector::Affine ToAffine(const Transform& t) {
    const auto finite = [](float value) { return std::isfinite(value) ? static_cast<double>(value) : 0.0; };
    return {finite(t.xx), finite(t.xy), finite(t.yx), finite(t.yy), finite(t.dx), finite(t.dy)};
}

/// The part of a bitmap, in its pixels, that a box in the units of its own device stands for.
vector::Box SourcePart(const vector::Box& box, const Transform& transform) {
    const vector::Affine map = ToAffine(transform);
    if (map.Determinant() == 0) return box;
    const vector::Point a = map.Apply({box.left, box.top});
    const vector::Point b = map.Apply({box.right, box.bottom});
    return {a.x, a.y, b.x, b.y};
}

vector::StretchMode StretchModeOf(DeviceContext& context) {
    return context.State().stretchMode == StretchHalftone ? vector::StretchMode::Average
                                                          : vector::StretchMode::Nearest;
}

LoadedBitmap Load(DeviceContext& context, const BitmapPlace& place, const BitmapColours& colours,
                  std::optional<std::uint32_t> rows = std::nullopt) {
    return LoadBitmap(context.File(), place, colours, context.Sink(), context.Painter().Budget(), rows);
}

/// A plain metafile keeps bitmaps of the screen's two colours as such, and they take the text's colours again.
BitmapColours SourceColours(DeviceContext& context, bool alpha) {
    BitmapColours colours = ColoursOf(
        context, context.Place().enhanced ? BitmapColours::Mono::AsTold : BitmapColours::Mono::BlackAndWhite);
    colours.alpha = alpha;
    return colours;
}

LoadedBitmap LoadMask(DeviceContext& context, const BitmapPlace& place) {
    BitmapColours colours;
    colours.palette = context.State().palette;
    colours.mono = BitmapColours::Mono::Always;
    return Load(context, place, colours);
}

/// The mask of a bitmap of which a part is drawn.
vector::BlitMask MaskOf(const LoadedBitmap& mask, Point maskFrom, const vector::Box& part,
                        vector::TernaryOperation otherwise) {
    vector::BlitMask made;
    if (mask.pixels.Empty()) return made;
    made.bitmap = &mask.pixels;
    made.offsetX = ToPixelPlace(double(maskFrom.x) - ToPixelPlace(part.left));
    made.offsetY = ToPixelPlace(double(maskFrom.y) - ToPixelPlace(part.top));
    made.otherwise = otherwise;
    return made;
}

void DrawAlpha(DeviceContext& context, const Blit& record, const vector::PlacedBitmap& placed) {
    const unsigned constant = (record.operation >> 16U) & 0xFFU;
    const bool perPixel = ((record.operation >> 24U) & 1U) != 0;
    context.Painter().AlphaBlit(placed, constant, perPixel);
}

/// What the operation is where the mask is 0.
vector::TernaryOperation MaskedOff(const Blit& record) {
    return static_cast<vector::TernaryOperation>(record.operation >> 24U);
}

bool NeedsSource(const Blit& record) {
    if (record.kind != Blit::Kind::Rop || vector::UsesSource(Ternary(record.operation))) return true;
    return record.mask.kind != BitmapPlace::Kind::None && vector::UsesSource(MaskedOff(record));
}

/// With the brush alone, and the mask if there is one.
void DrawPattern(DeviceContext& context, const Blit& record) {
    const vector::Box place = BoxOf(record.to, record.toSize);
    const vector::TernaryOperation operation = Ternary(record.operation);
    const vector::Affine map = context.ToPicture();
    const LoadedBitmap mask = LoadMask(context, record.mask);
    if (mask.pixels.Empty())
        return context.Painter().PatternBlit(place, map, SelectedBrush(context), operation);
    // Any bitmap does for the source, so that the mask is that, too.
    vector::PlacedBitmap placed;
    placed.bitmap = &mask.pixels;
    placed.part = BoxOf(record.maskFrom, record.toSize);
    placed.toDevice = vector::Affine::Between(placed.part, place).Then(map);
    const vector::BlitMask masked{&mask.pixels, 0, 0, MaskedOff(record)};
    context.Painter().Blit(placed, operation, SelectedBrush(context), masked);
}

}  // namespace

void Replay(DeviceContext& context, const std::unique_ptr<const Blit>& record) {
    if (!NeedsSource(*record)) return DrawPattern(context, *record);
    const vector::Box place = BoxOf(record->to, record->toSize);
    const vector::Affine map = context.ToPicture();
    const bool alpha = record->kind == Blit::Kind::AlphaBlend && ((record->operation >> 24U) & 1U) != 0;
    const LoadedBitmap loaded = Load(context, record->bitmap, SourceColours(context, alpha));
    if (loaded.pixels.Empty()) return;
    vector::PlacedBitmap placed;
    placed.bitmap = &loaded.pixels;
    placed.part = SourcePart(BoxOf(record->from, record->fromSize), record->sourceTransform);
    placed.toDevice = vector::Affine::Between(placed.part, place).Then(map);
    placed.mode = StretchModeOf(context);
    switch (record->kind) {
        case Blit::Kind::AlphaBlend:
            return DrawAlpha(context, *record, placed);
        case Blit::Kind::Transparent:
            return context.Painter().TransparentBlit(placed, context.Colour(record->operation));
        case Blit::Kind::Rop: {
            const LoadedBitmap mask = LoadMask(context, record->mask);
            const vector::BlitMask masked = MaskOf(mask, record->maskFrom, placed.part, MaskedOff(*record));
            return context.Painter().Blit(placed, Ternary(record->operation), SelectedBrush(context), masked);
        }
    }
}

void Replay(DeviceContext& context, const std::unique_ptr<const Plg>& record) {
    const LoadedBitmap loaded = Load(context, record->bitmap, SourceColours(context, false));
    if (loaded.pixels.Empty()) return;
    const LoadedBitmap mask = LoadMask(context, record->mask);
    vector::PlacedBitmap placed;
    placed.bitmap = &loaded.pixels;
    placed.part = SourcePart(BoxOf(record->from, record->fromSize), record->sourceTransform);
    placed.mode = StretchModeOf(context);
    const vector::Point origin = ToPoint(record->corners[0]);
    const vector::Point across = ToPoint(record->corners[1]) - origin;
    const vector::Point down = ToPoint(record->corners[2]) - origin;
    placed.toDevice = vector::Affine::Between(placed.part, {0, 0, 1, 1})
                          .Then({across.x, across.y, down.x, down.y, origin.x, origin.y})
                          .Then(context.ToPicture());
    context.Painter().Blit(placed, vector::SourceCopy, {},
                           MaskOf(mask, record->maskFrom, placed.part, vector::DestinationKept));
}

namespace {

/// The whole picture of a bitmap counts its rows from the lower edge, unless they are stored from the top.
void DrawStretched(DeviceContext& context, const DrawDib& record, const LoadedBitmap& loaded) {
    vector::PlacedBitmap placed;
    placed.bitmap = &loaded.pixels;
    placed.part = BoxOf(record.from, record.fromSize);
    if (!loaded.topDown) {
        const double height = loaded.pixels.Height();
        placed.part = {placed.part.left, height - placed.part.bottom, placed.part.right,
                       height - placed.part.top};
    }
    placed.toDevice =
        vector::Affine::Between(placed.part, BoxOf(record.to, record.toSize)).Then(context.ToPicture());
    placed.mode = StretchModeOf(context);
    context.Painter().Blit(placed, Ternary(record.operation), SelectedBrush(context));
}

/// Pixel for pixel of the device, from a bitmap of which some rows are there. The box has the size of the part; rows
/// and columns that are not there leave their places as they are.
void DrawToDevice(DeviceContext& context, const DrawDib& record, const LoadedBitmap& loaded) {
    const double rows = loaded.pixels.Height();
    const double first = record.firstRow;
    // Where the first of the rows that are there lies in the box.
    const double top =
        loaded.topDown ? first - record.from.y : double(record.from.y) + record.fromSize.y - first - rows;
    const double upper = std::max(0.0, top);
    const double lower = std::min<double>(record.fromSize.y, top + rows);
    const double right = std::min<double>(loaded.pixels.Width(), double(record.from.x) + record.fromSize.x);
    if (lower <= upper || right <= record.from.x) return;
    vector::PlacedBitmap placed;
    placed.bitmap = &loaded.pixels;
    placed.part = {double(record.from.x), upper - top, right, lower - top};
    const vector::Affine deviceToPicture = context.Place().deviceToPicture;
    const vector::Point corner = context.ToPicture(record.to);
    const vector::Affine toBox =
        vector::Affine::Between(placed.part, {0, upper, right - record.from.x, lower});
    placed.toDevice = toBox.Then({deviceToPicture.m11, deviceToPicture.m12, deviceToPicture.m21,
                                  deviceToPicture.m22, corner.x, corner.y});
    placed.mode = StretchModeOf(context);
    context.Painter().Blit(placed, Ternary(record.operation), SelectedBrush(context));
}

}  // namespace

void Replay(DeviceContext& context, const std::unique_ptr<const DrawDib>& record) {
    const vector::TernaryOperation operation = Ternary(record->operation);
    if (!vector::UsesSource(operation)) {
        return context.Painter().PatternBlit(BoxOf(record->to, record->toSize), context.ToPicture(),
                                             SelectedBrush(context), operation);
    }
    const std::optional<std::uint32_t> rows = record->toDevice ? std::optional(record->rows) : std::nullopt;
    const LoadedBitmap loaded =
        Load(context, record->bitmap, ColoursOf(context, BitmapColours::Mono::AsTold), rows);
    if (loaded.pixels.Empty()) return;
    if (record->toDevice) return DrawToDevice(context, *record, loaded);
    DrawStretched(context, *record, loaded);
}

}  // namespace tavrix::metafile
