#pragma once

#include "imaging/graphics/Colour.h"

namespace tavrix {

/// The colour around the images on the stage, by the setting BackgroundColor; any number behind the last stands for it.
[[nodiscard]] Colour StageBackground(int setting);

}  // namespace tavrix
