#pragma once

#include <optional>
#include <vector>

#include "codecs/TestBytes.h"
#include "imaging/graphics/Colour.h"

namespace tavrix::test {

/// A bitmap file to be put together by hand; everything can lie.
struct BmpFile {
    int width = 2;
    int height = 2;
    unsigned bits = 24;
    std::uint32_t compression = 0;
    std::uint32_t headerSize = 40;  ///< 12 writes the core header
    std::uint32_t coloursTold = 0;
    /// Behind the first 40 bytes, whether that is inside the header or not.
    std::vector<std::uint32_t> masks{};
    std::vector<Pixel> palette{};
    Bytes pixels{};
    std::size_t gap = 0;  ///< bytes between the palette and the pixels
    std::optional<std::uint32_t> offset{};

    [[nodiscard]] std::vector<std::byte> Make() const {
        Bytes tail;
        if (headerSize == 12) {
            tail.U16(static_cast<std::uint32_t>(width))
                .U16(static_cast<std::uint32_t>(height))
                .U16(1)
                .U16(bits);
        } else {
            Bytes fields;
            fields.I32(width).I32(height).U16(1).U16(bits).U32(compression).U32(0).U32(2835).U32(2835);
            fields.U32(coloursTold).U32(0);
            for (const std::uint32_t mask : masks)
                fields.U32(mask);
            const std::size_t inside = headerSize - 4;
            if (fields.Size() < inside) fields.Zeros(inside - fields.Size());
            const std::size_t masksBehind = headerSize < 52 ? 4 * masks.size() : 0;
            tail.Append(std::span(fields.Get()).first(inside + masksBehind));
        }
        for (const Pixel colour : palette) {
            tail.U8({colour & 0xFFU, (colour >> 8U) & 0xFFU, (colour >> 16U) & 0xFFU});
            if (headerSize != 12) tail.U8({0});
        }
        tail.Zeros(gap);
        const auto start = static_cast<std::uint32_t>(14 + 4 + tail.Size());
        Bytes file;
        file.Text("BM").U32(static_cast<std::uint32_t>(start + pixels.Size())).U32(0);
        file.U32(offset.value_or(start)).U32(headerSize).Append(tail.Get()).Append(pixels.Get());
        return file.Get();
    }
};

}  // namespace tavrix::test
