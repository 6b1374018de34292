#include "imaging/vector/FontFamilies.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "base/Text.h"

namespace tavrix::vector {
namespace {

using Names = std::span<const std::string_view>;

constexpr std::array<std::string_view, 5> Sans{"Liberation Sans", "Arimo", "Nimbus Sans", "FreeSans",
                                               "DejaVu Sans"};
constexpr std::array<std::string_view, 4> NarrowSans{"Liberation Sans Narrow", "Nimbus Sans Narrow",
                                                     "DejaVu Sans Condensed", "Liberation Sans"};
constexpr std::array<std::string_view, 3> WideSans{"DejaVu Sans", "Bitstream Vera Sans", "Liberation Sans"};
constexpr std::array<std::string_view, 5> Serif{"Liberation Serif", "Tinos", "Nimbus Roman", "FreeSerif",
                                                "DejaVu Serif"};
constexpr std::array<std::string_view, 3> BookSerif{"P052", "C059", "Liberation Serif"};
constexpr std::array<std::string_view, 3> TypewriterSerif{"C059", "P052", "Liberation Serif"};
constexpr std::array<std::string_view, 5> Mono{"Liberation Mono", "Cousine", "Nimbus Mono PS", "FreeMono",
                                               "DejaVu Sans Mono"};
constexpr std::array<std::string_view, 3> Script{"Z003", "URW Chancery L", "Liberation Serif"};
constexpr std::array<std::string_view, 2> Gothic{"URW Gothic", "Liberation Sans"};

struct Family {
    std::string_view name;  ///< lower case
    Names standIns;
};

constexpr std::array<Family, 36> Families{{
    {"arial", Sans},
    {"arial black", Sans},
    {"arial narrow", NarrowSans},
    {"avantgarde", Gothic},
    {"book antiqua", BookSerif},
    {"bookman old style", BookSerif},
    {"calibri", Sans},
    {"century gothic", Gothic},
    {"century schoolbook", TypewriterSerif},
    {"comic sans ms", WideSans},
    {"consolas", Mono},
    {"courier", Mono},
    {"courier new", Mono},
    {"fixedsys", Mono},
    {"garamond", BookSerif},
    {"georgia", Serif},
    {"helv", Sans},
    {"helvetica", Sans},
    {"helvetica narrow", NarrowSans},
    {"lucida console", Mono},
    {"microsoft sans serif", Sans},
    {"modern", Sans},
    {"monotype corsiva", Script},
    {"ms sans serif", Sans},
    {"ms serif", Serif},
    {"ms shell dlg", Sans},
    {"palatino", BookSerif},
    {"roman", Serif},
    {"script", Script},
    {"small fonts", Sans},
    {"system", Sans},
    {"tahoma", WideSans},
    {"terminal", Mono},
    {"times", Serif},
    {"times new roman", Serif},
    {"verdana", WideSans},
}};

/// Whether a family is the one with this name, or one of it for another script ("Arial CE", "Times New Roman (W1)").
/// Blanks and hyphens in between do not matter.
bool IsOfFamily(std::string_view family, std::string_view lower) {
    const auto gap = [](char c) { return c == ' ' || c == '-'; };
    std::size_t at = 0;
    for (const char c : lower) {
        if (gap(c)) continue;
        while (at < family.size() && gap(family[at]))
            ++at;
        if (at == family.size() || std::tolower(static_cast<unsigned char>(family[at])) != c) return false;
        ++at;
    }
    return at == family.size() || std::isalnum(static_cast<unsigned char>(family[at])) == 0;
}

Names StandInsForKind(FontKind kind) {
    switch (kind) {
        case FontKind::Roman:
            return Serif;
        case FontKind::Modern:
            return Mono;
        case FontKind::Script:
            return Script;
        case FontKind::Unknown:
        case FontKind::Swiss:
        case FontKind::Decorative:
            break;
    }
    return Sans;
}

// Codes 0x20 to 0x7E and 0xA0 to 0xFE of the Symbol family.
constexpr std::u32string_view SymbolLow =
    U"\u0020\u0021\u2200\u0023\u2203\u0025\u0026\u220B\u0028\u0029\u2217\u002B\u002C\u2212\u002E\u002F"
    U"0123456789\u003A\u003B\u003C\u003D\u003E\u003F"
    U"\u2245\u0391\u0392\u03A7\u0394\u0395\u03A6\u0393\u0397\u0399\u03D1\u039A\u039B\u039C\u039D\u039F"
    U"\u03A0\u0398\u03A1\u03A3\u03A4\u03A5\u03C2\u03A9\u039E\u03A8\u0396\u005B\u2234\u005D\u22A5\u005F"
    U"\u203E\u03B1\u03B2\u03C7\u03B4\u03B5\u03C6\u03B3\u03B7\u03B9\u03D5\u03BA\u03BB\u03BC\u03BD\u03BF"
    U"\u03C0\u03B8\u03C1\u03C3\u03C4\u03C5\u03D6\u03C9\u03BE\u03C8\u03B6\u007B\u007C\u007D\u223C";
constexpr std::u32string_view SymbolHigh =
    U"\u20AC\u03D2\u2032\u2264\u2044\u221E\u0192\u2663\u2666\u2665\u2660\u2194\u2190\u2191\u2192\u2193"
    U"\u00B0\u00B1\u2033\u2265\u00D7\u221D\u2202\u2022\u00F7\u2260\u2261\u2248\u2026\u23D0\u23AF\u21B5"
    U"\u2135\u2111\u211C\u2118\u2297\u2295\u2205\u2229\u222A\u2283\u2287\u2284\u2282\u2286\u2208\u2209"
    U"\u2220\u2207\u00AE\u00A9\u2122\u220F\u221A\u22C5\u00AC\u2227\u2228\u21D4\u21D0\u21D1\u21D2\u21D3"
    U"\u25CA\u2329\u00AE\u00A9\u2122\u2211\u239B\u239C\u239D\u23A1\u23A2\u23A3\u23A7\u23A8\u23A9\u23AA"
    U"\u0020\u232A\u222B\u2320\u23AE\u2321\u239E\u239F\u23A0\u23A4\u23A5\u23A6\u23AB\u23AC\u23AD";

struct Picture {
    unsigned char code = 0;
    char32_t character = 0;
};

// Those of the dingbats family that texts use: bullets, boxes, arrows, marks.
constexpr std::array<Picture, 51> Dingbats{{
    {0x20, U' '},      {0x21, U'\u270F'}, {0x22, U'\u2702'}, {0x28, U'\u260E'}, {0x2A, U'\u2709'},
    {0x36, U'\u231B'}, {0x3E, U'\u2707'}, {0x3F, U'\u270D'}, {0x41, U'\u270C'}, {0x45, U'\u261C'},
    {0x46, U'\u261E'}, {0x47, U'\u261D'}, {0x48, U'\u261F'}, {0x4A, U'\u263A'}, {0x4B, U'\u2639'},
    {0x4C, U'\u2639'}, {0x4E, U'\u2620'}, {0x51, U'\u2708'}, {0x52, U'\u263C'}, {0x54, U'\u2744'},
    {0x56, U'\u271E'}, {0x58, U'\u2720'}, {0x59, U'\u2721'}, {0x5A, U'\u262A'}, {0x6C, U'\u25CF'},
    {0x6D, U'\u274D'}, {0x6E, U'\u25A0'}, {0x6F, U'\u25A1'}, {0x71, U'\u2751'}, {0x72, U'\u2752'},
    {0x73, U'\u25C6'}, {0x74, U'\u25C6'}, {0x75, U'\u25C6'}, {0x76, U'\u2756'}, {0x77, U'\u25C6'},
    {0x78, U'\u2612'}, {0x9F, U'\u2022'}, {0xA7, U'\u25AA'}, {0xA8, U'\u25FB'}, {0xAB, U'\u2605'},
    {0xD8, U'\u27A2'}, {0xDF, U'\u2190'}, {0xE0, U'\u2192'}, {0xE1, U'\u2191'}, {0xE2, U'\u2193'},
    {0xE8, U'\u2794'}, {0xF0, U'\u21E8'}, {0xFB, U'\u2717'}, {0xFC, U'\u2713'}, {0xFD, U'\u2612'},
    {0xFE, U'\u2611'},
}};

}  // namespace

std::span<const std::string_view> StandInsFor(const FontRequest& request) {
    const Family* found = nullptr;
    for (const Family& family : Families)
        if (IsOfFamily(request.family, family.name) &&
            (found == nullptr || family.name.size() > found->name.size()))
            found = &family;
    if (found != nullptr) return found->standIns;
    if (request.fixedPitch) return Mono;
    return StandInsForKind(request.kind);
}

SymbolSet SymbolSetOf(std::string_view family) {
    if (EqualIgnoringCase(family, "symbol")) return SymbolSet::Symbol;
    for (const std::string_view name : {"wingdings", "zapf dingbats", "monotype sorts"})
        if (EqualIgnoringCase(family, name)) return SymbolSet::Dingbats;
    return SymbolSet::None;
}

char32_t SymbolCharacter(SymbolSet set, unsigned code) {
    const auto at = [](std::u32string_view table, std::size_t index) {
        return index < table.size() ? table[index] : char32_t{0};
    };
    switch (set) {
        case SymbolSet::Symbol:
            return code >= 0xA0 ? at(SymbolHigh, code - 0xA0) : at(SymbolLow, std::size_t{code} - 0x20);
        case SymbolSet::Dingbats: {
            const auto* const found = std::ranges::find(Dingbats, code, &Picture::code);
            return found != Dingbats.end() ? found->character : char32_t{0};
        }
        case SymbolSet::None:
            break;
    }
    return 0;
}

char32_t CharacterOfGlyph(std::uint32_t glyph) {
    // The classic outline fonts count their glyphs in the order of ASCII, from the third on.
    constexpr std::uint32_t First = 3;
    constexpr std::uint32_t Last = 97;
    constexpr std::uint32_t Distance = 29;
    return glyph >= First && glyph <= Last ? char32_t{glyph + Distance} : U' ';
}

}  // namespace tavrix::vector
