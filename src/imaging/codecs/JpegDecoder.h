#pragma once

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// JPEG (ITU-T T.81) by libjpeg-turbo: baseline, extended and progressive, Huffman and arithmetic, 8 bits, one
/// (grey), three or four parts. CMYK and YCCK are converted without a profile. The Exif orientation is applied. A file
/// that ends early is shown down to where its data end. Refused: 12 bits, lossless and hierarchical files.
[[nodiscard]] bool RecognisesJpeg(std::span<const std::byte> start);
[[nodiscard]] PictureHeader ReadJpegSize(ByteSource& source, const Cancellation& waiting);
[[nodiscard]] DecodeStatus DecodeJpeg(ByteSource& source, PictureSink& sink);

}  // namespace tavrix
