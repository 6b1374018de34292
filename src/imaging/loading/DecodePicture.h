#pragma once

#include <optional>

#include "base/RuntimeError.h"
#include "imaging/codecs/Decoder.h"
#include "imaging/graphics/Picture.h"

namespace tavrix {

/// What became of decoding: a picture or an error, never both.
struct DecodedPicture {
    Picture picture;
    DecodeStatus status;
    /// InvalidPicture for content that is no picture or has nothing to show, OutOfMemory above the limits; the source's
    /// own error where one came before anything could be shown.
    std::optional<ErrorNumber> error;
};

/// Decodes a whole picture, whatever its format. Throws nothing.
[[nodiscard]] DecodedPicture DecodePicture(ByteSource& source) noexcept;
/// The same by a decoder that was chosen before; null: no known format.
[[nodiscard]] DecodedPicture DecodePicture(ByteSource& source, const DecoderEntry* decoder) noexcept;

}  // namespace tavrix
