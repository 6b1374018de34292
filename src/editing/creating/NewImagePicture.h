#pragma once

#include "imaging/graphics/Picture.h"

namespace tavrix {

/// The decoration of the New Image dialog: an empty sheet with a folded corner. Drawn for the scale of the screen,
/// transparent around the sheet.
[[nodiscard]] Picture NewImagePicture(float twipsPerPixel);

}  // namespace tavrix
