#pragma once

#include <vector>

#include "platform/forms/Layout.h"

namespace tavrix::forms {

/// What a platform leaves free in its dialogs, in device pixels.
struct LayoutMetrics {
    PixelInsets margins;  ///< along the edges of the window
    int across = 0;       ///< between what stands side by side
    int down = 0;         ///< between what stands one below the other
    float twipsPerPixelX = 15;
    float twipsPerPixelY = 15;
};

/// Where an item goes, in device pixels of the inside of the window.
struct PlacedItem {
    LayoutItem* item = nullptr;
    PixelRect place;
};

/// The inside of a window that shows all of the layout, no smaller than it needs.
[[nodiscard]] PixelSize NaturalSizeOf(const Layout& layout, const LayoutMetrics& metrics);

/// Arranges the items within this inside. What is left goes to what grows, then to what wants it, then to all that can
/// fill it; where nothing can, it lies evenly between the items. Where there is less than they need, what may be
/// smaller than its natural size gives way. Frames come before what is in them.
[[nodiscard]] std::vector<PlacedItem> Solve(const Layout& layout, const LayoutMetrics& metrics,
                                            const PixelSize& inside);

}  // namespace tavrix::forms
