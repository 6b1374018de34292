#pragma once

#include <cstdint>

#include "imaging/graphics/Picture.h"

namespace tavrix {

enum class ToolbarSign : std::uint8_t { First, Previous, Next, Last, Stop };

/// The picture of a button of the navigator: a dark sign on a light plate, drawn for the scale of the screen.
[[nodiscard]] Picture ToolbarPicture(ToolbarSign sign, float twipsPerPixel);

}  // namespace tavrix
