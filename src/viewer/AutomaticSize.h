#pragma once

#include "platform/forms/Screen.h"

namespace tavrix {

/// What the automatic size of the main view follows from. All in twips.
struct AutomaticSizeInput {
    float imageWidth = 0;
    float imageHeight = 0;
    float frameWidth = 0;    ///< both sizing borders
    float frameHeight = 0;   ///< both sizing borders
    float chromeHeight = 0;  ///< menu bar and caption
    float screenWidth = 0;
    float screenHeight = 0;
    float twipsPerPixelX = 15;
    float twipsPerPixelY = 15;
};

struct WindowSize {
    float width = 0;
    float height = 0;

    friend bool operator==(const WindowSize&, const WindowSize&) = default;
};

/// The size that the main view takes for an image.
[[nodiscard]] WindowSize AutomaticSize(const AutomaticSizeInput& input);

/// A window that is no larger than an area of the screen and lies in it.
[[nodiscard]] forms::TwipRect KeptInside(const forms::TwipRect& window, const forms::TwipRect& area);

}  // namespace tavrix
