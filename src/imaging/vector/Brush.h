#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <variant>

#include "imaging/graphics/Surface.h"

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
};

/// A brush made ready for many pixels of a surface. For as long as the brush lives.
class BrushPixels {
  public:
    explicit BrushPixels(const Brush& brush);

    /// The brush's pixel at a place of the device, no coordinate of which is below 0; nothing where it lets through what is
    /// there.
    [[nodiscard]] std::optional<Pixel> At(int x, int y) const {
        if (kind_ == Kind::Solid) return colour_;
        if (kind_ == Kind::None) return std::nullopt;
        const auto column = (static_cast<unsigned>(x) + shiftX_) % width_;
        const auto row = (static_cast<unsigned>(y) + shiftY_) % height_;
        if (kind_ == Kind::Tile) return tile_[std::size_t{row} * width_ + column] | 0xFF000000U;
        if ((lines_[row] >> column & 1U) != 0) return colour_;
        return background_;
    }
    [[nodiscard]] bool Solid() const { return kind_ == Kind::Solid; }

  private:
    enum class Kind : std::uint8_t { None, Solid, Hatch, Tile };

    Kind kind_ = Kind::None;
    Pixel colour_ = 0;
    std::optional<Pixel> background_;
    std::array<std::uint8_t, 8> lines_{};  ///< of a hatch: a bit for each pixel of its rows
    std::span<const Pixel> tile_;
    unsigned width_ = 8;
    unsigned height_ = 8;
    unsigned shiftX_ = 0;
    unsigned shiftY_ = 0;
};

}  // namespace tavrix::vector
