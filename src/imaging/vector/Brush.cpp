#include "imaging/vector/Brush.h"

namespace tavrix::vector {
namespace {

constexpr Pixel OpaqueAlpha = 0xFF000000U;

/// The remainder that is never below 0.
int Wrapped(std::int64_t value, int size) {
    const auto remainder = static_cast<int>(value % size);
    return remainder < 0 ? remainder + size : remainder;
}

bool OnHatch(HatchStyle style, int x, int y) {
    // Lines run through the fifth row and column of eight, so that small boxes show one.
    const bool horizontal = y == 4;
    const bool vertical = x == 4;
    const bool forward = x == y;
    const bool backward = x + y == 7;
    switch (style) {
        case HatchStyle::Horizontal:
            return horizontal;
        case HatchStyle::Vertical:
            return vertical;
        case HatchStyle::ForwardDiagonal:
            return forward;
        case HatchStyle::BackwardDiagonal:
            return backward;
        case HatchStyle::Cross:
            return horizontal || vertical;
        case HatchStyle::DiagonalCross:
            return forward || backward;
    }
    return false;
}

}  // namespace

bool Brush::Null() const {
    if (const auto* pattern = std::get_if<PatternBrush>(&kind))
        return !pattern->tile || pattern->tile->Empty();
    return std::holds_alternative<NoBrush>(kind);
}

std::optional<Pixel> Brush::SolidColour() const {
    if (const auto* solid = std::get_if<SolidBrush>(&kind)) return solid->colour | OpaqueAlpha;
    return std::nullopt;
}

BrushPixels::BrushPixels(const Brush& brush) {
    if (brush.Null()) return;
    if (const auto solid = brush.SolidColour()) {
        kind_ = Kind::Solid;
        colour_ = *solid;
        return;
    }
    if (const auto* hatch = std::get_if<HatchBrush>(&brush.kind)) {
        kind_ = Kind::Hatch;
        colour_ = hatch->colour | OpaqueAlpha;
        if (hatch->background) background_ = *hatch->background | OpaqueAlpha;
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x)
                if (OnHatch(hatch->style, x, y))
                    lines_[static_cast<std::size_t>(y)] |=
                        static_cast<std::uint8_t>(1U << static_cast<unsigned>(x));
    } else {
        const Surface& tile = *std::get<PatternBrush>(brush.kind).tile;
        kind_ = Kind::Tile;
        tile_ = tile.Pixels();
        width_ = static_cast<unsigned>(tile.Width());
        height_ = static_cast<unsigned>(tile.Height());
    }
    shiftX_ = static_cast<unsigned>(Wrapped(-std::int64_t{brush.originX}, static_cast<int>(width_)));
    shiftY_ = static_cast<unsigned>(Wrapped(-std::int64_t{brush.originY}, static_cast<int>(height_)));
}

}  // namespace tavrix::vector
