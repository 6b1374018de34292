#pragma once

#include "imaging/graphics/Colour.h"

namespace tavrix {

/// The pixel laid over an opaque background; the result is opaque.
[[nodiscard]] constexpr Pixel Over(Pixel pixel, Pixel background) {
    const unsigned alpha = pixel >> 24U;
    if (alpha == 0xFFU) return pixel;
    const auto blend = [&](unsigned shift) {
        const unsigned mixed =
            ((pixel >> shift) & 0xFFU) * alpha + ((background >> shift) & 0xFFU) * (0xFFU - alpha);
        return (mixed + 127U) / 255U;
    };
    return OpaquePixel(blend(16), blend(8), blend(0));
}

}  // namespace tavrix
