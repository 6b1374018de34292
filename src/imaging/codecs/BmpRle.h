#pragma once

#include "imaging/codecs/BmpHeader.h"
#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// Decodes the run-length kinds (Rle4, Rle8, Rle24) onto a surface of the header's size. Pixels that the data skip
/// keep what the surface holds; a row that is too long goes on in the next one.
/// Source: "Bitmap Compression" in the Windows GDI reference.
[[nodiscard]] DecodeStatus DecodeBmpRle(ByteSource& source, const BmpHeader& header, Surface& surface,
                                        const Cancellation& sink);

}  // namespace tavrix
