#include "shows/stage/StagePointers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace tavrix {
namespace {

constexpr Pixel Ink = OpaquePixel(0x20, 0x20, 0x24);
constexpr Pixel Edge = OpaquePixel(0xFF, 0xFF, 0xFF);

/// '#' is ink and '.' edge; the tip is in the upper left corner.
constexpr std::array<std::string_view, 19> Arrow{
    "..          ", ".#.         ", ".##.        ", ".###.       ", ".####.      ",
    ".#####.     ", ".######.    ", ".#######.   ", ".########.  ", ".#########. ",
    ".##########.", ".######.....", ".###.##.    ", ".##..##.    ", ".#.  .##.   ",
    "..   .##.   ", "      .##.  ", "      .##.  ", "       ..   "};

Pixel PixelOf(char mark) {
    return mark == '#' ? Ink : mark == '.' ? Edge : Pixel{0};
}

}  // namespace

forms::PointerPicture StagePointer(float twipsPerPixel) {
    const float scale = std::max(15 / twipsPerPixel, 1.0F);
    const auto scaled = [scale](std::size_t pixels) {
        return static_cast<int>(std::lround(static_cast<float>(pixels) * scale));
    };
    Surface surface(scaled(Arrow[0].size()), scaled(Arrow.size()));
    for (int y = 0; y < surface.Height(); ++y) {
        const std::string_view row =
            Arrow[std::min(static_cast<std::size_t>(static_cast<float>(y) / scale), Arrow.size() - 1)];
        for (int x = 0; x < surface.Width(); ++x) {
            const auto mark =
                std::min(static_cast<std::size_t>(static_cast<float>(x) / scale), row.size() - 1);
            surface.Row(y)[static_cast<std::size_t>(x)] = PixelOf(row[mark]);
        }
    }
    return {PictureOf(std::move(surface)), 0, 0};
}

forms::PointerPicture SaverPointer() {
    Surface surface(1, 1);
    surface.Fill(Pixel{0});
    return {PictureOf(std::move(surface)), 0, 0};
}

}  // namespace tavrix
