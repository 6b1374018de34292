#pragma once

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// GIF, recognised by "GIF87a" or "GIF89a". Gives what the logical screen shows first: the first image that has a
/// pixel on it and, where control extensions give times to later images but none to that one, what is laid on it at
/// once. The rest is transparent, whatever background colour the file names. A screen without area takes the size of
/// that image. Colours that no table gives are black; without any table the colours are black, white, and greys.
/// Further images are counted but not decoded.
/// Source: the GIF 89a specification.
[[nodiscard]] bool RecognisesGif(std::span<const std::byte> start);
[[nodiscard]] PictureHeader ReadGifSize(ByteSource& source, const Cancellation& waiting);
[[nodiscard]] DecodeStatus DecodeGif(ByteSource& source, PictureSink& sink);

}  // namespace tavrix
