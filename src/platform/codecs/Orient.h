#pragma once

#include <span>

#include "platform/codecs/Exif.h"
#include "platform/graphics/Surface.h"

namespace tavrix {

/// Puts stored rows `first` to `first + count - 1` (one after the other in `rows`, each as wide as the surface is
/// high) where an orientation that transposes wants them. The surface is as wide as there are stored rows in all.
inline void PutTransposed(std::span<const Pixel> rows, int first, int count, Orientation orientation,
                          Surface& surface) {
    const int width = surface.Height();  // of the stored picture
    const bool columnsFromRight =
        orientation == Orientation::RightTop || orientation == Orientation::RightBottom;
    const bool rowsFromBottom =
        orientation == Orientation::RightBottom || orientation == Orientation::LeftBottom;
    for (int x = 0; x < width; ++x) {
        const std::span<Pixel> into = surface.Row(rowsFromBottom ? width - 1 - x : x);
        for (int i = 0; i < count; ++i) {
            const int column = columnsFromRight ? surface.Width() - 1 - (first + i) : first + i;
            into[static_cast<std::size_t>(column)] =
                rows[static_cast<std::size_t>(i) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x)];
        }
    }
}

}  // namespace tavrix
