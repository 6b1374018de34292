#pragma once

#include <optional>
#include <vector>

#include "codecs/TestBytes.h"
#include "imaging/graphics/Colour.h"

namespace tavrix::test {

/// One image of an icon file; everything can lie.
struct IconEntry {
    int width = 2;
    int height = 1;  ///< of the picture; the header tells twice that
    unsigned bits = 24;
    std::vector<Pixel> palette{};
    Bytes colours{};  ///< rows from the bottom, padded
    Bytes mask{};
    std::uint32_t compression = 0;
    unsigned coloursTold = 0;               ///< in the directory
    unsigned sideTold = 0;                  ///< in the directory; 0 stands for 256
    std::uint32_t sizeTold = 0;             ///< in the directory
    std::optional<std::uint32_t> offset{};  ///< in the directory
    std::vector<std::byte> inside{};        ///< in place of all that

    [[nodiscard]] std::vector<std::byte> Make() const {
        if (!inside.empty()) return inside;
        Bytes image;
        image.U32(40).I32(width).I32(2 * height).U16(1).U16(bits).U32(compression).Zeros(12);
        image.U32(static_cast<std::uint32_t>(palette.size())).U32(0);
        for (const Pixel colour : palette)
            image.U32(colour & 0xFFFFFFU);
        return image.Append(colours.Get()).Append(mask.Get()).Get();
    }
};

/// An icon or cursor file to be put together by hand.
struct IconFile {
    unsigned kind = 1;  ///< 2: a cursor
    std::vector<IconEntry> entries{};
    std::optional<unsigned> countTold{};

    [[nodiscard]] std::vector<std::byte> Make() const {
        Bytes file;
        Bytes images;
        file.U16(0).U16(kind).U16(countTold.value_or(static_cast<unsigned>(entries.size())));
        for (const IconEntry& entry : entries) {
            const auto start = static_cast<std::uint32_t>(6 + 16 * entries.size() + images.Size());
            file.U8({entry.sideTold, entry.sideTold, entry.coloursTold, 0}).U16(1).U16(entry.bits);
            file.U32(entry.sizeTold).U32(entry.offset.value_or(start));
            images.Append(entry.Make());
        }
        return file.Append(images.Get()).Get();
    }
};

}  // namespace tavrix::test
