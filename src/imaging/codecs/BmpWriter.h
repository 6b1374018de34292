#pragma once

#include <cstddef>
#include <functional>
#include <span>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// Writes a surface as an uncompressed bitmap of 24 bits, rows from the bottom, piece by piece. What is not opaque is
/// laid over SurfaceBackground. What `write` throws passes through.
void WriteBmp(const Surface& surface, const std::function<void(std::span<const std::byte>)>& write);

}  // namespace tavrix
