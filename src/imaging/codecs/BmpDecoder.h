#pragma once

#include "imaging/codecs/BmpHeader.h"
#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// Windows and OS/2 bitmaps. Recognised by "BM", or "BA" for an OS/2 array of bitmaps, of which the first is taken.
/// Pixels are opaque unless the header declares an alpha part that is not 0 throughout; pixels that run-length
/// data skip have the palette's first colour. Refused: PNG inside, CMYK, 64 bits, the fax
/// compression of OS/2.
[[nodiscard]] bool RecognisesBmp(std::span<const std::byte> start);
[[nodiscard]] PictureHeader ReadBmpSize(ByteSource& source, const Cancellation& waiting);
[[nodiscard]] DecodeStatus DecodeBmp(ByteSource& source, PictureSink& sink);
/// The pixels that go with a header of no trouble, of whichever kind. May throw std::bad_alloc.
[[nodiscard]] DecodeStatus DecodeBmpPixels(ByteSource& source, const BmpHeader& header, PictureSink& sink);

}  // namespace tavrix
