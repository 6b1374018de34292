#pragma once

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// Windows metafiles with and without the placeable header, and enhanced metafiles. They are drawn at their natural
/// size at 96 dots an inch on white paper. What would be larger than 64 megapixels so is drawn smaller.
/// A record that is not known is passed over; one that is broken is left out, and where its length does not lead to the
/// next one, the drawing ends with what there is so far. So does one of more work than some seconds' worth. The extended
/// records that some enhanced metafiles carry as comments are not drawn; the plain ones beside them are.
[[nodiscard]] bool RecognisesWmf(std::span<const std::byte> start);
[[nodiscard]] PictureHeader ReadWmfSize(ByteSource& source, const Cancellation& waiting);
[[nodiscard]] DecodeStatus DecodeWmf(ByteSource& source, PictureSink& sink);
[[nodiscard]] bool RecognisesEmf(std::span<const std::byte> start);
[[nodiscard]] PictureHeader ReadEmfSize(ByteSource& source, const Cancellation& waiting);
[[nodiscard]] DecodeStatus DecodeEmf(ByteSource& source, PictureSink& sink);
/// The same for at most so many nanoseconds, roughly.
[[nodiscard]] DecodeStatus DecodeEmfWithin(ByteSource& source, PictureSink& sink, std::int64_t mostWork);

}  // namespace tavrix
