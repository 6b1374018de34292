#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "imaging/metafile/Values.h"

namespace tavrix::metafile {

/// The numbers of PS_ in a pen's style.
namespace pen {
inline constexpr std::uint32_t StyleMask = 0xFU;
inline constexpr std::uint32_t Solid = 0;
inline constexpr std::uint32_t Dash = 1;
inline constexpr std::uint32_t Dot = 2;
inline constexpr std::uint32_t DashDot = 3;
inline constexpr std::uint32_t DashDotDot = 4;
inline constexpr std::uint32_t Null = 5;
inline constexpr std::uint32_t InsideFrame = 6;
inline constexpr std::uint32_t UserStyle = 7;
inline constexpr std::uint32_t Alternate = 8;
inline constexpr std::uint32_t CapMask = 0xF00U;
inline constexpr std::uint32_t CapSquare = 0x100U;
inline constexpr std::uint32_t CapFlat = 0x200U;
inline constexpr std::uint32_t JoinMask = 0xF000U;
inline constexpr std::uint32_t JoinBevel = 0x1000U;
inline constexpr std::uint32_t JoinMiter = 0x2000U;
inline constexpr std::uint32_t Geometric = 0x10000U;
}  // namespace pen

/// The numbers of BS_.
namespace brush {
inline constexpr std::uint32_t Solid = 0;
inline constexpr std::uint32_t Null = 1;
inline constexpr std::uint32_t Hatched = 2;
inline constexpr std::uint32_t Pattern = 3;
inline constexpr std::uint32_t DibPattern = 5;
inline constexpr std::uint32_t DibPatternPointer = 6;
}  // namespace brush

struct Brush {
    std::uint32_t style = brush::Solid;
    ColourValue colour = 0;
    std::uint32_t hatch = 0;  ///< 0 to 5: horizontal, vertical, falling, rising, cross, diagonal cross
    BitmapPlace bitmap;
    bool mono = false;  ///< a bitmap of two colours takes those of the text and the background
};

struct Pen {
    std::uint32_t style = pen::Solid;
    std::int32_t width = 0;
    Brush brush;                        ///< solid for a cosmetic pen
    std::vector<std::uint32_t> dashes;  ///< UserStyle: lengths of dashes and gaps in turns
    bool extended = false;              ///< caps and joins are as the style tells; otherwise they are round
};

struct Font {
    std::int32_t height = 0;       ///< logical units; below 0: without the internal leading
    std::int32_t width = 0;        ///< 0: as the font has it
    std::int32_t escapement = 0;   ///< tenths of a degree, counter-clockwise
    std::int32_t orientation = 0;  ///< tenths of a degree
    std::int32_t weight = 400;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    std::uint8_t charset = 0;
    std::uint8_t pitchAndFamily = 0;
    std::string face;  ///< bytes in the font's code page, where wideFace is empty
    std::u16string wideFace;
};

struct Palette {
    std::vector<ColourValue> entries;
};

/// Rectangles that do not overlap.
struct Region {
    std::vector<Box> boxes;
};

using Object = std::variant<Pen, Brush, Font, Palette, Region>;

}  // namespace tavrix::metafile
