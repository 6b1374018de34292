#include "viewer/DefaultPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "imaging/graphics/Draw.h"

namespace tavrix {
namespace {

constexpr int Width = 288;   ///< pixels
constexpr int Height = 192;  ///< pixels
constexpr int FrameWidth = 10;

constexpr int SunX = 202;
constexpr int SunY = 58;
constexpr int SunRadius = 17;
constexpr int GlowRadius = 52;

struct Shade {
    int red = 0;
    int green = 0;
    int blue = 0;
};

/// Between two shades, `part` of `whole` of the way.
constexpr Pixel Mixed(const Shade& a, const Shade& b, int part, int whole) {
    const int way = std::clamp(part, 0, whole);
    const auto channel = [&](int from, int to) {
        return static_cast<unsigned>(from + (to - from) * way / whole);
    };
    return OpaquePixel(channel(a.red, b.red), channel(a.green, b.green), channel(a.blue, b.blue));
}

/// The heights of the two rows of hills over each column. It is drawn at each start: a sine a column, none a pixel.
struct Hills {
    std::array<int, Width> far{};
    std::array<int, Width> near{};

    Hills() {
        for (std::size_t x = 0; x < far.size(); ++x) {
            const double across = static_cast<double>(x) / Width;
            const double farLine =
                0.60 - 0.08 * std::sin(across * 7.0 + 0.6) - 0.03 * std::sin(across * 17.0);
            const double nearLine = 0.78 - 0.07 * std::sin(across * 4.2 + 2.4);
            far[x] = static_cast<int>(farLine * Height);
            near[x] = static_cast<int>(nearLine * Height);
        }
    }
};

Pixel Landscape(const Hills& hills, int x, int y) {
    const auto column = static_cast<std::size_t>(x);
    if (y > hills.near[column]) return Mixed({60, 110, 78}, {32, 66, 52}, y - hills.near[column], Height / 4);
    if (y > hills.far[column])
        return Mixed({112, 148, 158}, {84, 124, 122}, y - hills.far[column], Height / 4);
    const int sun = (x - SunX) * (x - SunX) + (y - SunY) * (y - SunY);
    if (sun < SunRadius * SunRadius) return OpaquePixel(255, 240, 200);
    const int glow = std::max(GlowRadius * GlowRadius - sun, 0) / GlowRadius;
    return Mixed({98, 140, 190}, {250, 214, 170}, y * 8 / 5 + glow, Height);
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
    const Hills hills;
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
                pixel = Landscape(hills, x, y);
            }
            row[static_cast<std::size_t>(x)] = pixel;
        }
    }
    return PictureOf(std::move(surface));
}

}  // namespace tavrix
