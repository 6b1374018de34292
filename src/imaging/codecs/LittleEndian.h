#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tavrix {

/// Integers at a byte offset, the lowest byte first. The bytes must be there.
[[nodiscard]] inline std::uint16_t U16(std::span<const std::byte> bytes, std::size_t at) {
    return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[at]) |
                                      (std::to_integer<unsigned>(bytes[at + 1]) << 8U));
}

[[nodiscard]] inline std::uint32_t U32(std::span<const std::byte> bytes, std::size_t at) {
    return U16(bytes, at) | (static_cast<std::uint32_t>(U16(bytes, at + 2)) << 16U);
}

[[nodiscard]] inline std::int32_t I32(std::span<const std::byte> bytes, std::size_t at) {
    return static_cast<std::int32_t>(U32(bytes, at));
}

}  // namespace tavrix
