#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "imaging/vector/Brush.h"
#include "imaging/vector/Geometry.h"

namespace tavrix::vector {

enum class LineCap : std::uint8_t { Round, Square, Flat };
enum class LineJoin : std::uint8_t { Round, Bevel, Miter };

/// The styles of the metafile formats, by their numbers; the others (none, inside frame, user style) are the caller's.
enum class DashStyle : std::uint8_t { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, DashDotDot = 4 };

/// What a line is drawn with. Lengths are in units of the pen, which the map given along with it makes device pixels
/// of; a pen of width 0 is cosmetic: it is one pixel wide and its dashes are in pixels, whatever the map.
struct Pen {
    Brush brush = Brush::Solid(0xFF000000U);  ///< NoBrush: draws nothing
    double width = 0;
    LineCap cap = LineCap::Round;
    LineJoin join = LineJoin::Round;
    double miterLimit = 10;  ///< miter length over width, beyond which a bevel is made; at least 1
    /// Lengths of dash, gap, dash, ... from the start of each figure, repeated; an odd number of them is taken twice.
    /// Empty: solid. The caps come on top of each dash.
    std::vector<double> dashes = {};
    /// The colour of the gaps; none: what is there shows through.
    std::optional<Pixel> gaps = {};

    [[nodiscard]] static Pen None() { return {.brush = Brush::None()}; }
};

/// The dashes of a style: in pixels for a cosmetic pen (width 0), otherwise multiples of the width. Where the cap makes
/// dashes longer, they are shorter by as much, so that the gaps stay open.
[[nodiscard]] std::vector<double> DashesOf(DashStyle style, double width, LineCap cap = LineCap::Flat);

/// The box that a pen of this width draws so that its line stays inside `box`. The pen's own half pixel
/// (Painter::Stroke) is not part of it. Not smaller than a point.
[[nodiscard]] Box InsideFrame(const Box& box, double width);

}  // namespace tavrix::vector
