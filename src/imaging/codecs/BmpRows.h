#pragma once

#include "imaging/codecs/BmpHeader.h"
#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// Decodes the pixels of the kinds without compression (Indexed, Packed, Bgr24). Rows come in the order of the
/// picture, from the top, whichever way they lie in the file. An alpha part that is 0 throughout does not count; the
/// picture that the sink is told of is transparent where the alpha part counts or pixels are missing.
[[nodiscard]] DecodeStatus DecodeBmpRows(ByteSource& source, BmpHeader header, PictureSink& sink);

}  // namespace tavrix
