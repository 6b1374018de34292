#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "codecs/TestBytes.h"

namespace tavrix::test {

/// A Targa file to be put together by hand; everything can lie.
struct TgaFile {
    unsigned type = 2;
    unsigned width = 2;
    unsigned height = 2;
    unsigned bits = 24;
    unsigned descriptor = 0x20;  ///< rows from the top
    Bytes id{};
    std::optional<unsigned> mapType{};  ///< told otherwise than by whether there is a map
    unsigned mapFirst = 0;
    unsigned mapLength = 0;
    unsigned mapBits = 0;
    Bytes map{};
    Bytes pixels{};
    std::optional<unsigned> attributes{};  ///< an extension area and a footer with this attributes type

    [[nodiscard]] std::vector<std::byte> Make() const {
        Bytes file;
        file.U8({static_cast<unsigned>(id.Size()), mapType.value_or(mapLength != 0 ? 1 : 0), type});
        file.U16(mapFirst).U16(mapLength).U8({mapBits}).U16(0).U16(0).U16(width).U16(height);
        file.U8({bits, descriptor}).Append(id.Get()).Append(map.Get()).Append(pixels.Get());
        if (attributes) {
            const auto extension = static_cast<std::uint32_t>(file.Size());
            file.U16(495).Zeros(492).U8({*attributes});
            file.U32(extension).U32(0).Text("TRUEVISION-XFILE.").U8({0});
        }
        return file.Get();
    }
};

}  // namespace tavrix::test
