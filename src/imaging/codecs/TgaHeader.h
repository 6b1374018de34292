#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "imaging/codecs/ByteSource.h"
#include "imaging/codecs/PixelRows.h"
#include "imaging/graphics/Colour.h"

namespace tavrix {

enum class TgaPixels : std::uint8_t { Mapped, Colour, Grey };

/// What stands before the pixels of a Targa file.
struct TgaHeader {
    TgaPixels kind = TgaPixels::Colour;
    bool runLength = false;
    int width = 0;      ///< pixels
    int height = 0;     ///< pixels
    unsigned bits = 0;  ///< of a stored pixel: 8, 16 (15 counts as 16), 24 or 32
    bool fromRight = false;
    bool fromTop = false;
    bool alpha = false;          ///< pixels, or the entries of the colour map, say how opaque they are
    bool premultiplied = false;  ///< with `alpha`: the colours are scaled by it
    std::uint64_t pixelOffset = 0;
    unsigned mapFirst = 0;     ///< index of the first entry of the map
    std::vector<Pixel> map;    ///< as far as the file goes
    std::string_view trouble;  ///< why the file is refused; empty when it is not

    [[nodiscard]] unsigned BytesPerPixel() const { return bits / 8; }
};

/// Pixels and map entries of 16 (or 15) and of 32 bits.
[[nodiscard]] MaskedPixels TgaPackedPixels(unsigned bits, bool alpha);

[[nodiscard]] TgaHeader ReadTgaHeader(ByteSource& source);

}  // namespace tavrix
