#include "viewer/DefaultPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "platform/graphics/Draw.h"

namespace tavrix {
namespace {

constexpr int Width = 288;   ///< pixels
constexpr int Height = 192;  ///< pixels
constexpr int FrameWidth = 10;

struct Shade {
    double red;
    double green;
    double blue;
};

Pixel Mixed(const Shade& a, const Shade& b, double part) {
    const auto channel = [part](double from, double to) {
        return static_cast<unsigned>(std::lround(std::clamp(from + (to - from) * part, 0.0, 255.0)));
    };
    return OpaquePixel(channel(a.red, b.red), channel(a.green, b.green), channel(a.blue, b.blue));
}

Pixel Landscape(int x, int y) {
    const double across = static_cast<double>(x) / Width;
    const double down = static_cast<double>(y) / Height;
    const double farHills = 0.60 - 0.08 * std::sin(across * 7.0 + 0.6) - 0.03 * std::sin(across * 17.0);
    const double nearHills = 0.78 - 0.07 * std::sin(across * 4.2 + 2.4);
    if (down > nearHills) return Mixed({60, 110, 78}, {32, 66, 52}, (down - nearHills) * 4.0);
    if (down > farHills) return Mixed({112, 148, 158}, {84, 124, 122}, (down - farHills) * 4.0);
    const double sun = std::hypot((across - 0.70) * 1.5, down - 0.30);
    if (sun < 0.085) return OpaquePixel(255, 240, 200);
    return Mixed({98, 140, 190}, {250, 214, 170}, down * 1.6 + std::max(0.0, 0.25 - sun));
}

}  // namespace

Picture FullScreenPicture(float twipsPerPixel) {
    const int line = std::max(static_cast<int>(std::lround(15 / twipsPerPixel)), 1);
    const int side = 9 * line;
    const int arm = 3 * line;
    constexpr Pixel ink = OpaquePixel(0x30, 0x30, 0x34);
    Surface surface(side, side);
    for (const int x : {0, side - arm}) {
        FillBox(surface, {x, 0, arm, line}, ink);
        FillBox(surface, {x, side - line, arm, line}, ink);
        FillBox(surface, {0, x, line, arm}, ink);
        FillBox(surface, {side - line, x, line, arm}, ink);
    }
    Picture picture = PictureOf(std::move(surface));
    picture.transparent = true;
    return picture;
}

Picture DefaultPicture() {
    Surface surface(Width, Height);
    for (int y = 0; y < Height; ++y) {
        const auto row = surface.Row(y);
        for (int x = 0; x < Width; ++x) {
            const int edge = std::min({x, y, Width - 1 - x, Height - 1 - y});
            Pixel pixel = 0;
            if (edge == 0) {
                pixel = OpaquePixel(110, 110, 116);
            } else if (edge < FrameWidth) {
                pixel = OpaquePixel(244, 243, 240);
            } else {
                pixel = Landscape(x, y);
            }
            row[static_cast<std::size_t>(x)] = pixel;
        }
    }
    return PictureOf(std::move(surface));
}

}  // namespace tavrix
