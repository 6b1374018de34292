#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "imaging/codecs/ByteSource.h"
#include "imaging/graphics/Colour.h"

namespace tavrix {

/// The kinds of pixel data that a bitmap file can hold.
enum class BmpStorage : std::uint8_t {
    Indexed,  ///< 1, 2, 4 or 8 bits, into the palette
    Packed,   ///< 16 or 32 bits, split by masks
    Bgr24,
    Rle4,
    Rle8,
    Rle24,
    Jpeg,  ///< a whole JPEG file in place of pixels
    Png,   ///< a whole PNG file in place of pixels
};

/// The headers and the palette of a bitmap file, checked: sizes are positive, the bit count fits the storage.
/// Source: the BITMAPFILEHEADER, BITMAPCOREHEADER, BITMAPINFOHEADER, V4 and V5 pages of the Windows GDI
/// reference, and the OS/2 2.x header of the Presentation Manager reference.
struct BmpHeader {
    int width = 0;   ///< pixels
    int height = 0;  ///< pixels
    bool topDown = false;
    BmpStorage storage = BmpStorage::Indexed;
    unsigned bits = 0;                     ///< per pixel
    std::array<std::uint32_t, 4> masks{};  ///< Packed: red, green, blue, alpha; 0: no such part
    std::array<Pixel, 256> palette{};      ///< opaque; black where the file gives none
    std::uint64_t paletteOffset = 0;       ///< from the start of the file
    std::uint64_t paletteCount = 0;        ///< entries that the palette claims
    std::uint64_t pixelOffset = 0;         ///< from the start of the file
    std::string_view trouble;              ///< why the file is refused; empty when it is not

    /// Bytes from one row to the next, of uncompressed pixels.
    [[nodiscard]] std::uint64_t Stride() const {
        return (static_cast<std::uint64_t>(width) * bits + 31U) / 32U * 4U;
    }
};

/// The headers of a bitmap file, which start with "BM", or "BA" for an array of bitmaps.
[[nodiscard]] BmpHeader ReadBmpHeader(ByteSource& source);
/// The headers of a bitmap from its information header on, which is at `start`. Where `pixelOffset` makes no sense
/// (0 never does) the pixels follow the palette.
[[nodiscard]] BmpHeader ReadBmpInfo(ByteSource& source, std::uint64_t start, std::uint64_t pixelOffset);

}  // namespace tavrix
