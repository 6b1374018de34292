#pragma once

#include <cstdint>
#include <vector>

#include "imaging/codecs/BmpHeader.h"

namespace tavrix {

/// One image of an icon or a cursor. What the image itself says counts more than the directory.
struct IconImage {
    std::uint64_t offset = 0;  ///< from the start of the file
    int width = 0;             ///< pixels
    int height = 0;            ///< pixels
    unsigned bits = 0;         ///< per pixel
    unsigned colours = 0;      ///< as the directory tells, for a palette that is not full; 0: not told
    bool png = false;          ///< otherwise a bitmap without its file header

    [[nodiscard]] std::int64_t Area() const { return std::int64_t{width} * height; }
};

/// More is no icon. Real ones have up to 1024 pixels a side.
inline constexpr std::int64_t MostIconPixels = 16LL << 20U;

/// The images of an icon or cursor file that can be decoded as far as their headers go: the largest first, of the
/// same size the deepest, of those the one with the most colours. Entries that point at nothing usable are left away.
/// Source: the ICONDIR and ICONDIRENTRY structures in the Windows resource reference.
[[nodiscard]] std::vector<IconImage> ReadIconDirectory(ByteSource& source);

/// The header of an image that is a bitmap, for the colours alone: its height is that of the picture, and 32 bits
/// hold an alpha part. `source` starts at the image.
[[nodiscard]] BmpHeader ReadIconBitmap(ByteSource& source);

}  // namespace tavrix
