#pragma once

#include "imaging/graphics/Surface.h"

class QScreen;

namespace tavrix::qt {

/// The display for a window that covers one: where the active window is, else a visible one, else the pointer. Null
/// without any display.
[[nodiscard]] QScreen* FullScreenDisplay();

/// The whole of a display in device pixels.
[[nodiscard]] PixelRect PlaceOfDisplay(const QScreen& display);
/// The display that is exactly there, else the primary one.
[[nodiscard]] QScreen* DisplayAt(const PixelRect& place);

}  // namespace tavrix::qt
