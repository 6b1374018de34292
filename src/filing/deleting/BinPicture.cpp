#include "filing/deleting/BinPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace tavrix {
namespace {

/// '#' is the bin's outline, '.' its inside, 'x' the stroke.
constexpr std::array<std::string_view, 24> Bin{
    "                       x", "        ######        xx", "        #    #       xxx",
    "  ##################xxx ", "  #................xxx  ", "  ################xxx#  ",
    "   #.............xxx#   ", "   #..#...#..#..xxx.#   ", "   #..#...#..#.xxx..#   ",
    "   #..#...#..#xxx#..#   ", "   #..#...#..xxx.#..#   ", "   #..#...#.xxx..#..#   ",
    "   #..#...#xxx#..#..#   ", "   #..#...xxx.#..#..#   ", "   #..#..xxx..#..#..#   ",
    "    #.#.xxx#..#..#.#    ", "    #.#xxx.#..#..#.#    ", "    #.xxx..#..#..#.#    ",
    "    #xxx#..#..#..#.#    ", "    xxx.#..#..#..#.#    ", "   xxx.............#    ",
    "  xxx#.............#    ", " xxx  #############     ", " xx                     "};

Pixel PixelOf(char mark) {
    switch (mark) {
        case '#':
            return OpaquePixel(0x40, 0x44, 0x50);
        case '.':
            return OpaquePixel(0xC8, 0xD0, 0xDC);
        case 'x':
            return OpaquePixel(0xD0, 0x20, 0x20);
        default:
            return Pixel{0};
    }
}

}  // namespace

Picture StruckOutBin(float twipsPerPixel) {
    const int scale = std::max(static_cast<int>(std::lround(15 / twipsPerPixel)), 1);
    Surface surface(static_cast<int>(Bin[0].size()) * scale, static_cast<int>(Bin.size()) * scale);
    for (int y = 0; y < surface.Height(); ++y) {
        const std::string_view row = Bin[static_cast<std::size_t>(y / scale)];
        for (int x = 0; x < surface.Width(); ++x)
            surface.Row(y)[static_cast<std::size_t>(x)] = PixelOf(row[static_cast<std::size_t>(x / scale)]);
    }
    return PictureOf(std::move(surface));
}

}  // namespace tavrix
