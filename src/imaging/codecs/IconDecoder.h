#pragma once

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// Icons and cursors. Gives the largest image and of those the deepest; where it cannot be decoded whole, the next one
/// that can. Pixels of the mask are transparent, also those that would invert the screen; an image of 32 bits has
/// an alpha part instead, unless that is 0 throughout. PNG images are taken, too. Images over 16 megapixels are left
/// away.
[[nodiscard]] bool RecognisesIcon(std::span<const std::byte> start);
[[nodiscard]] bool RecognisesCursor(std::span<const std::byte> start);
[[nodiscard]] PictureHeader ReadIconSize(ByteSource& source, const Cancellation& waiting);
[[nodiscard]] DecodeStatus DecodeIcon(ByteSource& source, PictureSink& sink);

}  // namespace tavrix
