#include "viewer/DefaultPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <span>
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

/// All that the pixels of the landscape are taken from. It is drawn at each start: a sine a column and a mixture a shade,
/// none a pixel, and most of the sky a row at once.
struct Landscape {
    std::array<int, Width> far{};  ///< the heights of the two rows of hills over each column
    std::array<int, Width> near{};
    int highest = 0;                           ///< above it there is sky alone
    std::array<Pixel, Height + 1> sky{};       ///< from the top, the glow of the sun added
    std::array<Pixel, Height / 4 + 1> hill{};  ///< below the tops
    std::array<Pixel, Height / 4 + 1> meadow{};

    Landscape() {
        for (std::size_t x = 0; x < far.size(); ++x) {
            const double across = static_cast<double>(x) / Width;
            const double farLine =
                0.60 - 0.08 * std::sin(across * 7.0 + 0.6) - 0.03 * std::sin(across * 17.0);
            const double nearLine = 0.78 - 0.07 * std::sin(across * 4.2 + 2.4);
            far[x] = static_cast<int>(farLine * Height);
            near[x] = static_cast<int>(nearLine * Height);
        }
        highest = std::ranges::min(far);
        const auto mix = [](auto& shades, const Shade& from, const Shade& to) {
            const int whole = static_cast<int>(shades.size()) - 1;
            for (int part = 0; part <= whole; ++part)
                shades[static_cast<std::size_t>(part)] = Mixed(from, to, part, whole);
        };
        mix(sky, {98, 140, 190}, {250, 214, 170});
        mix(hill, {112, 148, 158}, {84, 124, 122});
        mix(meadow, {60, 110, 78}, {32, 66, 52});
    }

    /// Draws one row: the sky, the sun in it, and the hills before both.
    void Draw(int y, std::span<Pixel> row) const {
        std::ranges::fill(row.subspan(FrameWidth, Width - 2 * FrameWidth), Shaded(sky, ShadeOfSky(y)));
        if (std::abs(y - SunY) < GlowRadius) {
            for (int x = SunX - GlowRadius; x < std::min(SunX + GlowRadius, Width - FrameWidth); ++x)
                row[static_cast<std::size_t>(x)] = NearSun(x, y);
        }
        if (y <= highest) return;
        for (std::size_t x = FrameWidth; x < Width - FrameWidth; ++x) {
            if (y > near[x]) {
                row[x] = Shaded(meadow, y - near[x]);
            } else if (y > far[x]) {
                row[x] = Shaded(hill, y - far[x]);
            }
        }
    }

  private:
    [[nodiscard]] static int ShadeOfSky(int y) { return y * 8 / 5; }

    [[nodiscard]] Pixel NearSun(int x, int y) const {
        const int distance = (x - SunX) * (x - SunX) + (y - SunY) * (y - SunY);
        if (distance < SunRadius * SunRadius) return OpaquePixel(255, 240, 200);
        return Shaded(sky, ShadeOfSky(y) + std::max(GlowRadius * GlowRadius - distance, 0) / GlowRadius);
    }

    template <std::size_t Count>
    static Pixel Shaded(const std::array<Pixel, Count>& shades, int part) {
        return shades[std::min(static_cast<std::size_t>(part), Count - 1)];
    }
};

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
    const Landscape landscape;
    Surface surface(Width, Height);
    surface.Fill(OpaquePixel(110, 110, 116));
    FillBox(surface, {1, 1, Width - 2, Height - 2}, OpaquePixel(244, 243, 240));
    for (int y = FrameWidth; y < Height - FrameWidth; ++y)
        landscape.Draw(y, surface.Row(y));
    return PictureOf(std::move(surface));
}

}  // namespace tavrix
