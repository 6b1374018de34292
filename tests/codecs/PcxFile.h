#pragma once

#include <array>
#include <vector>

#include "codecs/TestBytes.h"
#include "imaging/graphics/Colour.h"

namespace tavrix::test {

/// A PCX file to be put together by hand; everything can lie.
struct PcxFile {
    unsigned version = 5;
    unsigned encoding = 1;
    unsigned bits = 8;
    unsigned planes = 1;
    unsigned width = 4;
    unsigned height = 1;
    unsigned left = 0;
    unsigned top = 0;
    unsigned bytesPerLine = 4;
    Bytes headerPalette{};  ///< up to 48 bytes
    Bytes lines{};
    std::vector<Pixel> palette{};  ///< at the end; black follows

    [[nodiscard]] std::vector<std::byte> Make() const {
        Bytes file;
        file.U8({10, version, encoding, bits}).U16(left).U16(top).U16(left + width - 1).U16(top + height - 1);
        file.U16(300).U16(300).Append(headerPalette.Get()).Zeros(48 - headerPalette.Size());
        file.U8({0, planes}).U16(bytesPerLine).U16(1).Zeros(58).Append(lines.Get());
        if (!palette.empty()) {
            file.U8({0x0C});
            for (const Pixel colour : palette)
                file.U8({(colour >> 16U) & 0xFFU, (colour >> 8U) & 0xFFU, colour & 0xFFU});
            file.Zeros(3 * (256 - palette.size()));
        }
        return file.Get();
    }
};

}  // namespace tavrix::test
