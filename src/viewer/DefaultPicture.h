#pragma once

#include "platform/graphics/Picture.h"

namespace tavrix {

/// What the main view shows without an image: a small plain picture of a landscape in its frame.
[[nodiscard]] Picture DefaultPicture();

}  // namespace tavrix
