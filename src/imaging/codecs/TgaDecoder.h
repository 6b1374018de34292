#pragma once

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// Targa pictures, by the Truevision TGA File Format Specification 2.0 (Technical Manual 2.2, January 1991): image
/// types 1, 2, 3, 9, 10 and 11 with 8, 15, 16, 24 and 32 bits, from any corner. Pixels are opaque unless
/// eight attribute bits are told, are not declared as undefined by the extension area, and are not 0 throughout. The
/// one bit of 16-bit colour has to be declared as alpha there. Indexes outside the colour map are black. Refused: interleaved rows
/// and the types from 32 on.
///
/// The format has no signature. To be recognised means no more than that the header makes sense, so data should be
/// taken for a Targa only when the name of its file says so.
[[nodiscard]] bool RecognisesTga(std::span<const std::byte> start);
[[nodiscard]] PictureHeader ReadTgaSize(ByteSource& source, const Cancellation& waiting);
[[nodiscard]] DecodeStatus DecodeTga(ByteSource& source, PictureSink& sink);

}  // namespace tavrix
