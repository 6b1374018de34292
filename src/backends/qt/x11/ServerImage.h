#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "imaging/graphics/Surface.h"

namespace tavrix::qt {

/// How a display server lays the pixels of one of its depths out in memory. Colours are bits of one number for each
/// pixel, told by masks.
struct ServerImageLayout {
    int bitsPerPixel = 32;  ///< 16, 24 or 32
    int rowBits = 32;       ///< rows begin at multiples of so many bits
    bool highByteFirst = false;
    std::uint32_t red = 0xFF0000U;
    std::uint32_t green = 0x00FF00U;
    std::uint32_t blue = 0x0000FFU;

    friend bool operator==(const ServerImageLayout&, const ServerImageLayout&) = default;

    /// Whether pixels of this layout can be told at all: palettes cannot.
    [[nodiscard]] bool Known() const;
    [[nodiscard]] std::size_t BytesPerRow(int width) const;
};

/// The pixels of an image that came from a server, opaque. Throws RuntimeError 481 for an unknown layout and for fewer
/// bytes than the size needs, and 7 above the limits of pictures.
[[nodiscard]] Surface FromServerImage(const ServerImageLayout& layout, int width, int height,
                                      std::span<const std::uint8_t> bytes);

/// Rows of a surface as a server wants them. The layout is a known one.
[[nodiscard]] std::vector<std::uint8_t> ToServerImage(const ServerImageLayout& layout, const Surface& pixels,
                                                      int firstRow, int rows);

}  // namespace tavrix::qt
