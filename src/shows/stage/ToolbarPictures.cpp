#include "shows/stage/ToolbarPictures.h"

#include <algorithm>
#include <cmath>

#include "imaging/graphics/Draw.h"

namespace tavrix {
namespace {

constexpr Pixel Plate = OpaquePixel(0xE6, 0xE6, 0xE2);
constexpr Pixel Edge = OpaquePixel(0x78, 0x78, 0x74);
constexpr Pixel Ink = OpaquePixel(0x28, 0x28, 0x2C);

/// A triangle whose point is to the left, or to the right, within a square.
void DrawArrow(Surface& surface, int left, int top, int side, bool toTheRight) {
    for (int y = 0; y < side; ++y) {
        const int length = side - std::abs(2 * y + 1 - side);
        FillBox(surface, {toTheRight ? left : left + side - length, top + y, length, 1}, Ink);
    }
}

}  // namespace

Picture ToolbarPicture(ToolbarSign sign, float twipsPerPixel) {
    const auto scaled = [twipsPerPixel](float pixels) {
        return std::max(static_cast<int>(std::lround(pixels * 15 / twipsPerPixel)), 1);
    };
    const int unit = scaled(1);
    const int width = scaled(32);
    const int height = scaled(23);
    const int side = scaled(11);
    const int bar = scaled(2);
    const int left = (width - side) / 2;
    const int top = (height - side) / 2;

    Surface surface(width, height);
    surface.Fill(Edge);
    FillBox(surface, {unit, unit, width - 2 * unit, height - 2 * unit}, Plate);
    switch (sign) {
        case ToolbarSign::First:
            FillBox(surface, {left - 2 * bar, top, bar, side}, Ink);
            DrawArrow(surface, left, top, side, false);
            break;
        case ToolbarSign::Previous:
            DrawArrow(surface, left, top, side, false);
            break;
        case ToolbarSign::Next:
            DrawArrow(surface, left, top, side, true);
            break;
        case ToolbarSign::Last:
            DrawArrow(surface, left, top, side, true);
            FillBox(surface, {left + side + bar, top, bar, side}, Ink);
            break;
        case ToolbarSign::Stop:
            FillBox(surface, {left, top, side, side}, Ink);
            break;
    }
    return PictureOf(std::move(surface));
}

}  // namespace tavrix
