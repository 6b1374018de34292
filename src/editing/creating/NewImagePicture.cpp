#include "editing/creating/NewImagePicture.h"

#include <algorithm>
#include <cmath>

#include "imaging/graphics/Draw.h"

namespace tavrix {

Picture NewImagePicture(float twipsPerPixel) {
    constexpr Pixel Edge = OpaquePixel(0x78, 0x78, 0x74);
    constexpr Pixel Paper = OpaquePixel(0xFC, 0xFC, 0xFA);
    constexpr Pixel Fold = OpaquePixel(0xDC, 0xDC, 0xD6);
    const int unit = std::max(static_cast<int>(std::lround(15 / twipsPerPixel)), 1);
    const int width = 36 * unit;
    const int height = 46 * unit;
    const int fold = 11 * unit;
    Surface surface(width, height);
    for (int y = 0; y < height; ++y) {
        const int cut = std::max(fold - y, 0);
        const int right = width - cut;
        FillBox(surface, {0, y, right, 1}, Edge);
        const bool inside = y >= unit && y < height - unit;
        if (!inside) continue;
        FillBox(surface, {unit, y, right - 2 * unit, 1}, Paper);
        if (y >= fold) continue;
        const int left = width - fold - unit;
        FillBox(surface, {left, y, unit, 1}, Edge);
        FillBox(surface, {left + unit, y, right - left - 2 * unit, 1}, y < fold - unit ? Fold : Edge);
    }
    Picture picture = PictureOf(std::move(surface));
    picture.transparent = true;
    return picture;
}

}  // namespace tavrix
