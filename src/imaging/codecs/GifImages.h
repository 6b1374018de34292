#pragma once

#include <cstdint>

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// How many images follow in a GIF file, from the pixel data of one of them on, which start at `offset`. An image
/// counts when its header is there. Looks at 256 MiB at most, and stops early when the sink is cancelled.
/// Source: the block structure in the GIF 89a specification.
[[nodiscard]] int CountGifImagesBehind(ByteSource& source, std::uint64_t offset, const PictureSink& sink);

}  // namespace tavrix
