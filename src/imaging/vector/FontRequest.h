#pragma once

#include <cstdint>
#include <string>

namespace tavrix::vector {

/// The rough kind of a font, for where the family is not installed.
enum class FontKind : std::uint8_t { Unknown, Roman, Swiss, Modern, Script, Decorative };

/// What a metafile says of a font. Lengths are in the units of the text's map (see Painter::DrawText).
struct FontRequest {
    std::string family;  ///< UTF-8; the classic names are understood; empty: any
    /// Above 0: of a line, ascent and descent. Below 0: of the characters (the em). 0: a default of 12 (em).
    double height = 0;
    double width = 0;  ///< average width of a character; 0: as the font has it
    int weight = 400;  ///< 100 to 900; 0: 400
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    bool fixedPitch = false;
    FontKind kind = FontKind::Unknown;
    /// A font of pictures: its codes 0x20 to 0xFF are its own. Ask for them as U+F020 to U+F0FF; those of the
    /// classic symbol families are found in other fonts where the family itself is not installed.
    bool symbol = false;
    double escapement = 0;   ///< degrees that the line of text is turned by, counter-clockwise
    double orientation = 0;  ///< degrees that each character is turned by, counter-clockwise
};

}  // namespace tavrix::vector
