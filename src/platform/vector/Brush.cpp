#include "platform/vector/Brush.h"

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

std::optional<Pixel> Brush::At(int x, int y) const {
    const std::int64_t left = std::int64_t{x} - originX;
    const std::int64_t top = std::int64_t{y} - originY;
    if (const auto* solid = std::get_if<SolidBrush>(&kind)) return solid->colour | OpaqueAlpha;
    if (const auto* hatch = std::get_if<HatchBrush>(&kind)) {
        if (OnHatch(hatch->style, Wrapped(left, 8), Wrapped(top, 8))) return hatch->colour | OpaqueAlpha;
        if (hatch->background) return *hatch->background | OpaqueAlpha;
        return std::nullopt;
    }
    const auto* pattern = std::get_if<PatternBrush>(&kind);
    if (pattern == nullptr || Null()) return std::nullopt;
    const Surface& tile = *pattern->tile;
    const auto row = tile.Row(Wrapped(top, tile.Height()));
    return row[static_cast<std::size_t>(Wrapped(left, tile.Width()))] | OpaqueAlpha;
}

}  // namespace tavrix::vector
