#include "editing/desktop/WallpaperFit.h"

#include <algorithm>

#include "base/Rounding.h"

namespace tavrix {

WallpaperSize FitWallpaper(const WallpaperSize& picture, const WallpaperSize& screen,
                           const WallpaperSize& pixel) {
    const double ratio = double{picture.height} / double{picture.width};
    const double heightAtFullWidth = double{screen.width} * ratio;
    if (heightAtFullWidth <= double{screen.height}) {
        const auto height = static_cast<float>(RoundToLong(heightAtFullWidth));
        return {screen.width, std::max(height, pixel.height)};
    }
    const auto width = static_cast<float>(RoundToLong(double{screen.height} / ratio));
    return {std::max(width, pixel.width), screen.height};
}

}  // namespace tavrix
