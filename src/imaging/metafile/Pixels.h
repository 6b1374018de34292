#pragma once

#include <algorithm>
#include <cmath>

namespace tavrix::metafile {

/// The pixel that a place names, or the border between pixels that it is nearest to; kept within what a picture could
/// have.
[[nodiscard]] inline int ToPixelPlace(double place) {
    constexpr double Farthest = 1 << 25;
    return std::isnan(place) ? 0 : static_cast<int>(std::floor(std::clamp(place, -Farthest, Farthest) + 0.5));
}

}  // namespace tavrix::metafile
