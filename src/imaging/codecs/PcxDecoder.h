#pragma once

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// PCX pictures, by the PCX Technical Reference Manual of ZSoft Corporation (revision 5, 1991), of all its versions: 1 to 4 planes
/// of one bit, 1 or 2 of two bits, 1 of four bits, 1 of eight bits, and one each for red, green and blue, run-length
/// encoded or not. A fourth plane of eight bits is passed over. Pixels are opaque. One bit is black and white; up to
/// four bits have the header's palette, or the colours of the display adapters where that is empty; eight bits have
/// the palette at the end of the file, or shades of grey. Refused: lines with fewer bytes than the width needs.
[[nodiscard]] bool RecognisesPcx(std::span<const std::byte> start);
[[nodiscard]] PictureHeader ReadPcxSize(ByteSource& source, const Cancellation& waiting);
[[nodiscard]] DecodeStatus DecodePcx(ByteSource& source, PictureSink& sink);

}  // namespace tavrix
