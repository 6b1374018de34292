#pragma once

#include "imaging/graphics/Picture.h"

namespace tavrix {

/// The picture whole and opaque: what is transparent or missing is laid over SurfaceBackground. One that is so already
/// is given back as it is. Waits for rows that are still arriving. Throws RuntimeError 7 where memory is refused.
[[nodiscard]] Picture Flattened(const Picture& picture);

}  // namespace tavrix
