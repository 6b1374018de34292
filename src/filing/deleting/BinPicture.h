#pragma once

#include "imaging/graphics/Picture.h"

namespace tavrix {

/// A struck-out waste bin: what is deleted does not go there. Drawn for the scale of the screen.
[[nodiscard]] Picture StruckOutBin(float twipsPerPixel);

}  // namespace tavrix
