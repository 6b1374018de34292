#pragma once

#include <cstdint>
#include <vector>

#include "imaging/graphics/Colour.h"

namespace tavrix::test {

/// A PNG file to be made by the library's own encoder.
struct PngFile {
    int width = 2;
    int height = 2;
    int depth = 8;                      ///< bits of a part
    int colourType = 6;                 ///< 0 grey, 2 RGB, 3 palette, 4 grey with alpha, 6 RGB with alpha
    std::vector<std::uint8_t> rows{};   ///< as stored, the rows one after the other
    std::vector<Pixel> palette{};       ///< colour type 3
    std::vector<std::uint8_t> alpha{};  ///< of the palette's first colours
    bool interlaced = false;
    bool gamma = false;  ///< tells a gamma far from the usual one

    [[nodiscard]] std::vector<std::byte> Make() const;
};

}  // namespace tavrix::test
