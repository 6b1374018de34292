#pragma once

#include <cstdint>

namespace tavrix {

/// Rounds to the nearest 32-bit integer, halves to the even neighbour.
/// Throws RuntimeError 6 (Overflow) outside the 32-bit range and for a value that is not a number.
[[nodiscard]] std::int32_t RoundToLong(double value);

/// Rounds to the nearest 16-bit integer, halves to the even neighbour; throws RuntimeError 6 outside the range.
[[nodiscard]] std::int16_t ToInteger16(double value);

}  // namespace tavrix
