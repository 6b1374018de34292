#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/Decoders.h"

namespace tavrix::test {

inline DecodedPicture Decode(std::span<const std::byte> bytes) {
    MemorySource source(bytes);
    return DecodePicture(source);
}

/// The same where the name may ask for an import decoder.
inline DecodedPicture Decode(std::span<const std::byte> bytes, std::string_view name) {
    MemorySource source(bytes);
    return DecodePicture(source, ImportDecoderFor(source, name));
}

/// The pixels from the top left, row by row; empty without a picture.
inline std::vector<Pixel> PixelsOf(const DecodedPicture& decoded) {
    if (decoded.picture.Empty()) return {};
    const auto pixels = decoded.picture.pixels->Whole().Pixels();
    return {pixels.begin(), pixels.end()};
}

inline constexpr Pixel Red = 0xFFFF0000U;
inline constexpr Pixel Green = 0xFF00FF00U;
inline constexpr Pixel Blue = 0xFF0000FFU;
inline constexpr Pixel WhitePixel = 0xFFFFFFFFU;
inline constexpr Pixel BlackPixel = 0xFF000000U;
inline constexpr Pixel Untouched = 0U;

}  // namespace tavrix::test
