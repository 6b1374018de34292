#pragma once

#include <optional>

#include "editing/turning/RotateGeometry.h"
#include "imaging/graphics/Surface.h"

namespace tavrix {

/// The cosine and the sine of a turn by whole quarters: -1, 0 or 1.
struct QuarterTurn {
    int cosine = 1;
    int sine = 0;
};

/// The quarter turn that the polar rotation comes to with this angle and this last row of its loop, if it is one.
[[nodiscard]] std::optional<QuarterTurn> QuarterTurnOf(float angle, int limit);

/// RotatePicture for such a turn: plain copying of a rectangle. `limit` is the last row.
void RotateByQuarters(const Surface& source, Surface& dest, const QuarterTurn& turn, int limit,
                      const RotateGeometry& geometry);

}  // namespace tavrix
