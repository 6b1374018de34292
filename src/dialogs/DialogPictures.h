#pragma once

#include <cstdint>

#include "imaging/graphics/Picture.h"

namespace tavrix {

enum class DialogSign : std::uint8_t { Speaker, Disc, Bin, Screen };

/// A small picture for a dialog: a dark sign on a light plate, drawn for the scale of the screen.
[[nodiscard]] Picture DialogPicture(DialogSign sign, float twipsPerPixel);

}  // namespace tavrix
