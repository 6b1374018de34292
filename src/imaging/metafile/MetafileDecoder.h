#pragma once

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// Windows metafiles with and without the placeable header, and enhanced metafiles. They are drawn at their natural
/// size at 96 dots an inch on white paper. A record that is not known is passed over; one that is broken ends the
/// drawing with what there is so far, and so does one more work than a few seconds' worth. The extended records that
/// some enhanced metafiles carry as comments are not drawn; the plain ones beside them are.
[[nodiscard]] bool RecognisesWmf(std::span<const std::byte> start);
[[nodiscard]] DecodeStatus DecodeWmf(ByteSource& source, PictureSink& sink);
[[nodiscard]] bool RecognisesEmf(std::span<const std::byte> start);
[[nodiscard]] DecodeStatus DecodeEmf(ByteSource& source, PictureSink& sink);

}  // namespace tavrix
