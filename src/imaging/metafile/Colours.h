#pragma once

#include "imaging/graphics/Colour.h"
#include "imaging/metafile/Objects.h"

namespace tavrix::metafile {

/// The colour that a value of a file stands for; black for an entry that the palette does not have.
[[nodiscard]] inline Pixel ToPixel(ColourValue value, const Palette& palette) {
    constexpr ColourValue PaletteIndex = 1;
    ColourValue colour = value;
    if (value >> 24U == PaletteIndex) {
        const ColourValue index = value & 0xFFFFU;
        colour = index < palette.entries.size() ? palette.entries[index] : 0;
    }
    return OpaquePixel(colour & 0xFFU, (colour >> 8U) & 0xFFU, (colour >> 16U) & 0xFFU);
}

}  // namespace tavrix::metafile
