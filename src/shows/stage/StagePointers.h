#pragma once

#include "platform/forms/Control.h"

namespace tavrix {

/// The pointer over the image on the stage: a dark arrow with a light edge, to be seen on every picture, drawn for the
/// scale of the screen.
[[nodiscard]] forms::PointerPicture StagePointer(float twipsPerPixel);

/// The pointer over the image of the saver, of which nothing is to be seen.
[[nodiscard]] forms::PointerPicture SaverPointer();

}  // namespace tavrix
