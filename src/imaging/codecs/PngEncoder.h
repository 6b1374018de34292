#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// How much work goes into making a PNG small.
enum class PngPacking : std::uint8_t {
    Stored,  ///< as large as a bitmap, and nearly as quick to make
    Packed,  ///< perhaps half as large, at some seven times the time
};

/// Writes a surface as a PNG of 8 bits a colour, piece by piece. All pixels count as opaque. `write` takes the next
/// bytes, throws nothing and says whether to go on.
///
/// False when `write` said no, for an empty surface, and where memory is refused. In the last two cases nothing has
/// been written.
[[nodiscard]] bool EncodePng(const Surface& surface, PngPacking packing,
                             const std::function<bool(std::span<const std::byte>)>& write);

}  // namespace tavrix
