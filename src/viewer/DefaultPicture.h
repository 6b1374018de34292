#pragma once

#include "imaging/graphics/Picture.h"

namespace tavrix {

/// What the main view shows without an image: a small plain picture of a landscape in its frame.
[[nodiscard]] Picture DefaultPicture();

/// The sign on the full screen button, which is too small for its caption: a frame that opens at its corners. Drawn for
/// the scale of the screen, transparent around the lines.
[[nodiscard]] Picture FullScreenPicture(float twipsPerPixel);

}  // namespace tavrix
