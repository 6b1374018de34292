#pragma once

#include <cstdint>
#include <span>

namespace tavrix::qt::x11 {

/// The Latin character among what a key gives in the layouts that the user has set, given as the server's table of the
/// keyboard has it: two symbols of the first layout, two of the second, then the rest. 0: there is none.
[[nodiscard]] char LatinOf(std::span<const std::uint32_t> symbols);

/// The same for a key of this X server's keyboard by its code; 0 also on other window systems. Asks the server.
[[nodiscard]] char LatinOfKey(std::uint32_t keyCode);

}  // namespace tavrix::qt::x11
