#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "imaging/codecs/ByteSource.h"
#include "imaging/graphics/Colour.h"

namespace tavrix {

/// What a PCX file says besides its pixels, and the palette that its pixels have.
struct PcxHeader {
    static constexpr std::uint64_t Size = 128;  ///< bytes before the pixels

    bool runLength = true;
    unsigned bits = 0;  ///< of a pixel in one plane
    unsigned planes = 0;
    int width = 0;                 ///< pixels
    int height = 0;                ///< pixels
    std::size_t bytesPerLine = 0;  ///< of one plane
    std::uint64_t dataEnd = 0;     ///< bytes from the start of the file; a palette of 256 colours may follow
    std::array<Pixel, 256> palette{};
    std::string_view trouble;  ///< why the file is refused; empty when it is not

    /// Red, green and blue have a plane each; otherwise the planes together are an index.
    [[nodiscard]] bool TrueColour() const { return bits == 8 && planes >= 3; }
};

[[nodiscard]] PcxHeader ReadPcxHeader(ByteSource& source);

}  // namespace tavrix
