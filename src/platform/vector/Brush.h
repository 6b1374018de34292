#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>

#include "platform/graphics/Surface.h"

namespace tavrix::vector {

/// Fills nothing.
struct NoBrush {};

struct SolidBrush {
    Pixel colour = 0xFF000000U;
};

/// By the numbers of the metafile formats.
enum class HatchStyle : std::uint8_t {
    Horizontal = 0,        ///< -----
    Vertical = 1,          ///< |||||
    ForwardDiagonal = 2,   ///< downwards to the right
    BackwardDiagonal = 3,  ///< upwards to the right
    Cross = 4,             ///< +++++
    DiagonalCross = 5,     ///< xxxxx
};

/// Lines one pixel wide, eight pixels apart.
struct HatchBrush {
    HatchStyle style = HatchStyle::Horizontal;
    Pixel colour = 0xFF000000U;
    std::optional<Pixel> background;  ///< none: what is there shows through
};

/// A tile that is repeated, pixel for pixel. Its alpha is not looked at. Without a tile, or with an empty one, it fills
/// nothing.
struct PatternBrush {
    std::shared_ptr<const Surface> tile;
};

struct Brush {
    std::variant<NoBrush, SolidBrush, HatchBrush, PatternBrush> kind;
    /// Where a corner of the pattern or the hatch lies, in device pixels.
    int originX = 0;
    int originY = 0;

    [[nodiscard]] static Brush Solid(Pixel colour) { return {SolidBrush{colour}, 0, 0}; }
    [[nodiscard]] static Brush None() { return {}; }
    [[nodiscard]] bool Null() const;
    /// The colour, if it is one everywhere.
    [[nodiscard]] std::optional<Pixel> SolidColour() const;
    /// The brush's pixel at a place of the device; nothing where it lets through what is there.
    [[nodiscard]] std::optional<Pixel> At(int x, int y) const;
};

}  // namespace tavrix::vector
