#pragma once

#include <cstdint>
#include <vector>

namespace tavrix::metafile {

/// A place or a size, in the units of the record that holds it.
struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

/// A rectangle by two corners, in no order.
struct Box {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    friend bool operator==(const Box&, const Box&) = default;
};

/// x' = xx * x + yx * y + dx, y' = xy * x + yy * y + dy; the numbers of a file, which need not be finite.
struct Transform {
    float xx = 1;
    float xy = 0;
    float yx = 0;
    float yy = 1;
    float dx = 0;
    float dy = 0;
};

/// A colour as files hold it: 0x00BBGGRR, 0x01..IIII for an entry of the palette, 0x02BBGGRR for the palette's nearest.
using ColourValue = std::uint32_t;

/// The place of an object in the table; of an enhanced metafile's stock objects the highest bit is set.
using Handle = std::uint32_t;

inline constexpr Handle StockObject = 0x80000000U;
/// Tables of objects have no more places than a 16-bit count can tell.
inline constexpr Handle MostHandles = 0x10000U;

/// What records tell of a bitmap whose palette holds indexes into the selected one.
inline constexpr std::uint32_t UsesPaletteIndexes = 1;

/// Where a bitmap lies in the file. It is decoded only when it is drawn.
struct BitmapPlace {
    enum class Kind : std::uint8_t {
        None,
        Dib,           ///< a bitmap's information header, and its pixels
        DeviceBitmap,  ///< the old header of ten bytes, rows of whole 16-bit words from the top
    };

    Kind kind = Kind::None;
    bool paletteIndexes = false;  ///< Dib: the palette holds 16-bit indexes into the selected palette
    std::uint64_t header = 0;     ///< bytes from the start of the file
    std::uint64_t headerLength = 0;
    std::uint64_t bits = 0;  ///< bytes from the start of the file; 0: behind the header and the palette
    std::uint64_t bitsLength = 0;
};

}  // namespace tavrix::metafile
