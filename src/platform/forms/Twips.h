#pragma once

#include "base/Rounding.h"
#include "imaging/graphics/Surface.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::forms {

/// A twip is a 1440th of an inch; a length in twips as device pixels, halves to even.
[[nodiscard]] inline int ToPixels(float twips, float twipsPerPixel) {
    return RoundToLong(twips / twipsPerPixel);
}

[[nodiscard]] inline float ToTwips(int pixels, float twipsPerPixel) {
    return static_cast<float>(pixels) * twipsPerPixel;
}

[[nodiscard]] inline PixelRect ToPixels(float left, float top, float width, float height,
                                        const ScreenInfo& screen) {
    return {ToPixels(left, screen.twipsPerPixelX), ToPixels(top, screen.twipsPerPixelY),
            ToPixels(width, screen.twipsPerPixelX), ToPixels(height, screen.twipsPerPixelY)};
}

}  // namespace tavrix::forms
