#pragma once

#include <string>

#include "platform/forms/LayoutItem.h"

namespace tavrix::headless {

/// The font of the headless windows: all characters are alike. Device pixels.
struct HeadlessFont {
    int width = 7;
    int height = 16;

    /// The size of a caption, whose marks for mnemonics take no room.
    [[nodiscard]] forms::PixelSize SizeOf(const std::string& caption) const;
    /// How high a text is whose lines are broken at this width.
    [[nodiscard]] int HeightAt(const std::string& caption, int lineWidth) const;
};

}  // namespace tavrix::headless
