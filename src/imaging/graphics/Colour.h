#pragma once

#include <cstdint>

namespace tavrix {

/// One pixel in memory: 0xAARRGGBB, straight alpha, 0xFF opaque.
using Pixel = std::uint32_t;

inline constexpr Pixel OpaquePixel(unsigned red, unsigned green, unsigned blue) {
    return 0xFF000000U | (red << 16U) | (green << 8U) | blue;
}

/// A colour as windows and settings hold it: the bytes in blue-green-red order (0x00BBGGRR).
struct Colour {
    std::uint32_t bgr = 0;

    friend constexpr bool operator==(Colour, Colour) = default;
};

/// The face of buttons and dialogs, whatever the desktop's theme makes of it. Only the backend knows its value.
inline constexpr Colour ButtonFace{0x8000000FU};
inline constexpr Colour Black{0x000000U};
inline constexpr Colour White{0xFFFFFFU};
/// What lies behind the transparent parts of a picture. A constant, so that saved bytes do not depend on the
/// desktop's theme.
inline constexpr Colour SurfaceBackground = White;

/// The pixel of a colour that is not ButtonFace.
inline constexpr Pixel ToPixel(Colour colour) {
    return OpaquePixel(colour.bgr & 0xFFU, (colour.bgr >> 8U) & 0xFFU, (colour.bgr >> 16U) & 0xFFU);
}

}  // namespace tavrix
