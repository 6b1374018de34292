#pragma once

#include <algorithm>
#include <cstdint>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// An opaque picture with all pixels different, the first of them white.
inline Surface Different(int width, int height) {
    Surface surface(width, height);
    std::uint32_t number = 0x00FFFFFFU;
    for (Pixel& pixel : surface.Pixels())
        pixel = 0xFF000000U | (number-- & 0x00FFFFFFU);
    return surface;
}

/// A surface whose pixels are none of those of Different.
inline Surface Background(int width, int height) {
    Surface surface(width, height);
    surface.Fill(0xFE123456U);
    return surface;
}

inline bool SamePixels(const Surface& a, const Surface& b) {
    return a.Width() == b.Width() && a.Height() == b.Height() &&
           std::equal(a.Pixels().begin(), a.Pixels().end(), b.Pixels().begin());
}

}  // namespace tavrix
