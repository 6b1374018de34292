#pragma once

#include <cstdint>

namespace tavrix {

/// Images that show nothing and are passed over on the way to one that does.
inline constexpr int MostGifImagesPassed = 1000;
/// Pixels that are not on the screen, or lie under others, cost time, too. So many there may be, besides those of the
/// screen.
inline constexpr std::int64_t MostHiddenGifPixels = 64LL << 20U;

}  // namespace tavrix
