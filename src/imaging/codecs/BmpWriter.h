#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// How long the file of WriteBmp is, in bytes.
[[nodiscard]] std::uint64_t BmpSize(const Surface& surface);

/// Writes a surface as an uncompressed bitmap of 24 bits, rows from the bottom, piece by piece: all pieces but the last are
/// multiples of 256 KiB, as systems like them best. `write` is called by this thread; for large surfaces another one makes
/// the next piece meanwhile. What is not opaque is laid over SurfaceBackground. What `write` throws passes through.
void WriteBmp(const Surface& surface, const std::function<void(std::span<const std::byte>)>& write);

}  // namespace tavrix
