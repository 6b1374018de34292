#pragma once

#include <array>

#include "imaging/graphics/Colour.h"

namespace tavrix {

/// What lies beside an image, by the setting BackgroundColor. The last one is a grey, whatever its name in the
/// preferences says.
inline constexpr std::array<Colour, 6> BackgroundColours{
    Black, White, ButtonFace, Colour{0x400000}, Colour{0x40}, Colour{0x404040}};

}  // namespace tavrix
