#pragma once

#include <optional>

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// What the header of a PNG file says.
struct PngHeader {
    int width = 0;      ///< pixels
    int height = 0;     ///< pixels
    unsigned bits = 0;  ///< per pixel
};

/// The header of PNG data; nothing where there is no PNG, or one without area.
/// Source: "Datastream structure" and "IHDR" in the PNG specification.
[[nodiscard]] std::optional<PngHeader> ReadPngHeader(ByteSource& source);

/// PNG, in files of its own and inside icons and bitmaps. Colours are taken as they are stored; colour profiles and gamma do not count.
[[nodiscard]] bool RecognisesPng(std::span<const std::byte> start);
[[nodiscard]] PictureHeader ReadPngSize(ByteSource& source, const Cancellation& waiting);
[[nodiscard]] DecodeStatus DecodePng(ByteSource& source, PictureSink& sink);

}  // namespace tavrix
