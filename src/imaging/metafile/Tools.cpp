#include "imaging/metafile/Tools.h"

#include <cmath>

#include "imaging/metafile/Pixels.h"

namespace tavrix::metafile {
namespace {

/// Lines up to here are one pixel wide.
constexpr double ThinnestBroad = 1.5;

std::optional<Pixel> Background(const DeviceContext& context, const DeviceState& state) {
    if (!state.opaqueBackground) return std::nullopt;
    return context.Colour(state.backgroundColour);
}

vector::Brush MakeBrush(DeviceContext& context, const std::shared_ptr<const Object>& owner,
                        const Brush& brush) {
    const DeviceState& state = context.State();
    const vector::Point origin = context.Place().deviceToPicture.Apply(
        {static_cast<double>(state.brushOrigin.x), static_cast<double>(state.brushOrigin.y)});
    vector::Brush made;
    made.originX = ToPixelPlace(origin.x);
    made.originY = ToPixelPlace(origin.y);
    constexpr std::uint32_t Hatches = 6;
    switch (brush.style) {
        case brush::Solid:
            made.kind = vector::SolidBrush{context.Colour(brush.colour)};
            break;
        case brush::Hatched:
            // The numbers beyond are fillings of one colour.
            if (brush.hatch >= Hatches) {
                made.kind = vector::SolidBrush{context.Colour(brush.colour)};
            } else {
                made.kind = vector::HatchBrush{static_cast<vector::HatchStyle>(brush.hatch),
                                               context.Colour(brush.colour), Background(context, state)};
            }
            break;
        case brush::Pattern:
        case brush::DibPattern:
        case brush::DibPatternPointer: {
            const BitmapColours colours =
                ColoursOf(context, brush.mono ? BitmapColours::Mono::Always : BitmapColours::Mono::AsTold);
            made.kind = vector::PatternBrush{context.Tiles().TileOf(
                owner, brush, colours, context.File(), context.Sink(), context.Painter().Budget())};
            break;
        }
        default:
            break;
    }
    return made;
}

vector::LineCap CapOf(const Pen& pen) {
    if (!pen.extended) return vector::LineCap::Round;
    switch (pen.style & pen::CapMask) {
        case pen::CapSquare:
            return vector::LineCap::Square;
        case pen::CapFlat:
            return vector::LineCap::Flat;
        default:
            return vector::LineCap::Round;
    }
}

std::vector<double> DashesOf(const Pen& pen, double width) {
    const std::uint32_t style = pen.style & pen::StyleMask;
    if (style == pen::UserStyle) {
        std::vector<double> dashes(pen.dashes.begin(), pen.dashes.end());
        return dashes;
    }
    if (style == pen::Alternate) return {1, 1};
    if (style < pen::Dash || style > pen::DashDotDot) return {};
    return vector::DashesOf(static_cast<vector::DashStyle>(style), width, CapOf(pen));
}

vector::LineJoin JoinOf(const Pen& pen) {
    if (!pen.extended) return vector::LineJoin::Round;
    switch (pen.style & pen::JoinMask) {
        case pen::JoinBevel:
            return vector::LineJoin::Bevel;
        case pen::JoinMiter:
            return vector::LineJoin::Miter;
        default:
            return vector::LineJoin::Round;
    }
}

}  // namespace

BitmapColours ColoursOf(DeviceContext& context, BitmapColours::Mono mono) {
    const DeviceState& state = context.State();
    BitmapColours colours;
    colours.palette = state.palette;
    colours.mono = mono;
    if (mono != BitmapColours::Mono::AsTold) {
        colours.zero = context.Colour(state.textColour);
        colours.one = context.Colour(state.backgroundColour);
    }
    return colours;
}

vector::Brush BrushOf(DeviceContext& context, const std::shared_ptr<const Object>& object) {
    const auto* brush = object ? std::get_if<Brush>(object.get()) : nullptr;
    return brush == nullptr ? vector::Brush::None() : MakeBrush(context, object, *brush);
}

vector::Brush SelectedBrush(DeviceContext& context) {
    return BrushOf(context, context.State().brush);
}

DrawingPen SelectedPen(DeviceContext& context) {
    const std::shared_ptr<const Object> owner = context.State().pen;
    const Pen& pen = std::get<Pen>(*owner);
    const std::uint32_t style = pen.style & pen::StyleMask;
    DrawingPen made;
    if (style == pen::Null) {
        made.pen = vector::Pen::None();
        return made;
    }
    made.toPicture = context.ToPicture();
    const double across = std::hypot(made.toPicture.m11, made.toPicture.m12);
    // A simple pen is as wide in all directions; only one made with more to say is stretched with the picture.
    if (!pen.extended) made.toPicture = vector::Affine::Scale(across, across);
    const bool cosmetic = pen.extended && (pen.style & pen::Geometric) == 0;
    const double width = std::abs(static_cast<double>(pen.width));
    const double pixels = cosmetic ? 1 : width * (pen.extended ? made.toPicture.MeanScale() : across);
    made.pen.width = cosmetic || pixels < ThinnestBroad ? 0 : width;
    made.endsBeforeLast = made.pen.width == 0;
    made.insideFrame = style == pen::InsideFrame && made.pen.width != 0;
    made.pen.cap = CapOf(pen);
    made.pen.join = JoinOf(pen);
    made.pen.miterLimit = context.State().miterLimit;
    made.pen.brush = MakeBrush(context, owner, pen.brush);
    // A simple pen has its style only while it is thin.
    if (pen.extended || made.pen.width == 0) made.pen.dashes = DashesOf(pen, made.pen.width);
    if (!pen.extended && !made.pen.dashes.empty()) made.pen.gaps = Background(context, context.State());
    return made;
}

}  // namespace tavrix::metafile
