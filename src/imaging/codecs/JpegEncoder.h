#pragma once

#include <cstddef>
#include <functional>
#include <span>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// Writes a surface as a baseline JPEG (JFIF, pixels square, no orientation), piece by piece. Quality is 1 to 100,
/// values outside are brought there; below 90 the colours have half the resolution in both directions. All pixels
/// count as opaque. `write` takes the next bytes, throws nothing and says whether to go on.
///
/// False when `write` said no, for an empty surface, for a side beyond the format's 65500 pixels, and where memory
/// is refused. In the last three cases nothing has been written.
[[nodiscard]] bool EncodeJpeg(const Surface& surface, int quality,
                              const std::function<bool(std::span<const std::byte>)>& write);

}  // namespace tavrix
