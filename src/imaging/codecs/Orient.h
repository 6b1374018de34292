#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "imaging/codecs/Exif.h"
#include "imaging/graphics/Surface.h"

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
    // Tile by tile, so that both what is read and what is written stays in the cache's lines.
    constexpr int Tile = 8;
    std::array<Pixel*, Tile> columns{};
    for (int left = 0; left < width; left += Tile) {
        const int tile = std::min(Tile, width - left);
        for (int i = 0; i < tile; ++i) {
            columns[static_cast<std::size_t>(i)] =
                surface.Row(rowsFromBottom ? width - 1 - left - i : left + i).data();
        }
        for (int i = 0; i < count; ++i) {
            const int column = columnsFromRight ? surface.Width() - 1 - (first + i) : first + i;
            const Pixel* from = &rows[static_cast<std::size_t>(i) * static_cast<std::size_t>(width) +
                                      static_cast<std::size_t>(left)];
            for (int k = 0; k < tile; ++k)
                columns[static_cast<std::size_t>(k)][column] = from[k];
        }
    }
}

}  // namespace tavrix
