#pragma once

#include <cstdint>

#include "imaging/codecs/Decoder.h"

namespace tavrix {

/// What follows an image in a GIF file.
struct GifImagesBehind {
    int images = 0;      ///< an image counts when its header is there
    bool timed = false;  ///< control extensions give times to some of them
};

/// Looks from the pixel data of an image on, which start at `offset`, at 256 MiB at most, and stops early when the sink
/// is cancelled.
/// Source: the block structure in the GIF 89a specification.
[[nodiscard]] GifImagesBehind LookBehindGifImage(ByteSource& source, std::uint64_t offset,
                                                 const Cancellation& sink);

}  // namespace tavrix
