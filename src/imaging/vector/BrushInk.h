#pragma once

#include <optional>

#include "imaging/vector/Brush.h"
#include "imaging/vector/Pixels.h"
#include "imaging/vector/RasterOperation.h"

namespace tavrix::vector {

/// Whether an operation sets pixels whatever was there.
[[nodiscard]] constexpr bool IsOpaque(BinaryOperation operation) {
    return !UsesDestination(ToTernary(operation));
}

/// The one colour that an opaque operation of the brush paints everywhere.
[[nodiscard]] inline std::optional<Pixel> OpaqueInk(const Brush& brush, BinaryOperation operation) {
    const auto colour = brush.SolidColour();
    if (!colour || !IsOpaque(operation)) return std::nullopt;
    return Combine(ToTernary(operation), *colour, 0, 0);
}

/// What a brush makes of a pixel.
class BrushInk {
  public:
    BrushInk(const Brush& brush, BinaryOperation operation) : brush_(brush), combine_(ToTernary(operation)) {}

    [[nodiscard]] Pixel operator()(int x, int y, Pixel below, unsigned coverage) const {
        const auto colour = brush_.At(x, y);
        if (!colour) return below;
        const Pixel combined = combine_(*colour, 0, below);
        return coverage == 255 ? combined : Mixed(combined, below, coverage);
    }
    /// Of a pixel, in units of work.
    [[nodiscard]] int Cost() const { return brush_.Solid() ? 4 : 12; }

  private:
    BrushPixels brush_;
    Combiner combine_;
};

}  // namespace tavrix::vector
