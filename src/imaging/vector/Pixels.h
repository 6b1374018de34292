#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "imaging/graphics/Colour.h"
#include "imaging/graphics/Surface.h"
#include "imaging/vector/Geometry.h"

namespace tavrix::vector {

/// The colour mixed with an opaque one by a coverage of 0 to 255; the result is opaque.
[[nodiscard]] inline Pixel Mixed(Pixel colour, Pixel below, unsigned coverage) {
    // Two channels at a time, with room for the product between them; exact at both ends.
    const auto blend = [&](std::uint32_t a, std::uint32_t b) {
        const std::uint32_t sum = a * coverage + b * (255U - coverage) + 0x00800080U;
        return ((sum + ((sum >> 8U) & 0x00FF00FFU)) >> 8U) & 0x00FF00FFU;
    };
    const std::uint32_t redBlue = blend(colour & 0x00FF00FFU, below & 0x00FF00FFU);
    const std::uint32_t green = blend((colour >> 8U) & 0xFFU, (below >> 8U) & 0xFFU);
    return 0xFF000000U | redBlue | (green << 8U);
}

/// A coordinate as the nearest border between pixels.
[[nodiscard]] inline int NearestBorder(double coordinate) {
    constexpr double Farthest = 1 << 26;
    return static_cast<int>(std::clamp(std::floor(Tamed(coordinate) + 0.5), -Farthest, Farthest));
}

/// The rectangle between the nearest borders.
[[nodiscard]] inline PixelRect NearestRect(const Box& box) {
    const Box b = Tamed(box);
    const int left = NearestBorder(b.left);
    const int top = NearestBorder(b.top);
    return {left, top, NearestBorder(b.right) - left, NearestBorder(b.bottom) - top};
}

/// All pixels that a box touches.
[[nodiscard]] inline PixelRect TouchedRect(const Box& box) {
    const Box b = Tamed(box);
    const int left = NearestBorder(std::floor(b.left));
    const int top = NearestBorder(std::floor(b.top));
    return {left, top, NearestBorder(std::ceil(b.right)) - left, NearestBorder(std::ceil(b.bottom)) - top};
}

[[nodiscard]] inline PixelRect Intersection(const PixelRect& a, const PixelRect& b) {
    const int left = std::max(a.left, b.left);
    const int top = std::max(a.top, b.top);
    return {left, top, std::max(std::min(a.left + a.width, b.left + b.width) - left, 0),
            std::max(std::min(a.top + a.height, b.top + b.height) - top, 0)};
}

}  // namespace tavrix::vector
