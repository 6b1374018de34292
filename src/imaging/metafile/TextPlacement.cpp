#include "imaging/metafile/TextPlacement.h"

#include <algorithm>
#include <cmath>

#include "base/Text.h"
#include "imaging/metafile/CodePages.h"

namespace tavrix::metafile {
namespace {

/// The numbers of FF_ in a font's pitch and family.
vector::FontKind KindOf(std::uint8_t pitchAndFamily) {
    switch (pitchAndFamily >> 4U) {
        case 1:
            return vector::FontKind::Roman;
        case 2:
            return vector::FontKind::Swiss;
        case 3:
            return vector::FontKind::Modern;
        case 4:
            return vector::FontKind::Script;
        case 5:
            return vector::FontKind::Decorative;
        default:
            return vector::FontKind::Unknown;
    }
}

void AppendUtf8(std::string& text, char32_t character) {
    const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | (character >> 6U));
        put(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        put(0xE0 | (character >> 12U));
        put(0x80 | ((character >> 6U) & 0x3F));
        put(0x80 | (character & 0x3F));
    } else {
        put(0xF0 | (character >> 18U));
        put(0x80 | ((character >> 12U) & 0x3F));
        put(0x80 | ((character >> 6U) & 0x3F));
        put(0x80 | (character & 0x3F));
    }
}

/// Fonts of pictures, which some writers name without the character set of symbols.
bool IsSymbolic(const Font& font, std::string_view family) {
    constexpr std::uint8_t AnyCharset = 1;
    if (font.charset == SymbolCharset) return true;
    if (font.charset != AnyCharset) return false;
    return EndsInIgnoringCase(family, "Symbol") || EqualIgnoringCase(family, "Wingdings") ||
           EqualIgnoringCase(family, "Webdings") || EqualIgnoringCase(family, "MT Extra");
}

std::string FamilyOf(DeviceContext& context, const Font& font) {
    // Names of symbol fonts are plain text all the same.
    const std::uint8_t charset = font.charset == SymbolCharset ? std::uint8_t{0} : font.charset;
    const DecodedText face =
        font.wideFace.empty() ? context.Pages().Decode(font.face, charset) : DecodeUtf16(font.wideFace);
    std::string family;
    for (const char32_t character : face.characters)
        AppendUtf8(family, character);
    // Of the fonts that share the encoding of the classic one, that one is known everywhere.
    if (EndsInIgnoringCase(family, " Symbol")) return "Symbol";
    // An upright font that is laid on its side is named with this before it; its upright form is the same.
    if (family.starts_with('@')) family.erase(0, 1);
    return family;
}

/// The scale of text: how long a unit of the font is across and along the lines.
struct TextScale {
    vector::Affine toPicture;  ///< without a shift
    double stepScale = 1;      ///< makes units of the font of logical ones along the line
};

/// Where records speak of a compatible device, text stays upright and undistorted whatever the map: it is as high as
/// the map makes it.
TextScale ScaleOf(DeviceContext& context, const Text& text) {
    vector::Affine map = context.ToPicture();
    map.dx = 0;
    map.dy = 0;
    if (context.Place().enhanced && !text.compatible) return {map, 1};
    const double along = std::hypot(map.m11, map.m12);
    const double upright = std::hypot(map.m21, map.m22);
    if (!(upright > 0) || !std::isfinite(upright) || !std::isfinite(along)) return {{0, 0, 0, 0, 0, 0}, 1};
    vector::Affine scale = vector::Affine::Scale(upright, upright);
    // A world that is turned turns the text too.
    const double turn = along > 0 ? std::atan2(map.m12, std::abs(map.m11)) : 0;
    if (std::abs(map.m12) > 1e-9 * along) {
        const double cosine = std::cos(turn);
        const double sine = std::sin(turn);
        scale = {upright * cosine, upright * sine, -upright * sine, upright * cosine, 0, 0};
    }
    return {scale, along / upright};
}

bool IsEastern(std::uint8_t charset) {
    constexpr std::uint8_t First = 128;  // Japanese
    constexpr std::uint8_t Last = 136;   // Chinese
    return charset >= First && charset <= Last;
}

vector::FontRequest RequestOf(DeviceContext& context, const Font& font, const Text& text, double stepScale) {
    constexpr double TenthsOfDegree = 10;
    vector::FontRequest request;
    request.family = FamilyOf(context, font);
    request.height = font.height;
    request.width = std::abs(static_cast<double>(font.width)) * stepScale;
    request.weight = font.weight;
    request.italic = font.italic;
    request.underline = font.underline;
    request.strikeOut = font.strikeOut;
    request.fixedPitch = (font.pitchAndFamily & 3U) == 1;
    request.kind = KindOf(font.pitchAndFamily);
    // Fonts of eastern Asia call themselves modern without being of one pitch.
    if (request.kind == vector::FontKind::Modern && !request.fixedPitch && IsEastern(font.charset))
        request.kind = vector::FontKind::Unknown;
    request.symbol = IsSymbolic(font, request.family);
    request.escapement = font.escapement / TenthsOfDegree;
    // A compatible device turns each character as it turns the line. Where the map turns one axis, so that y counts
    // upwards, angles run clockwise.
    const bool compatible = !context.Place().enhanced || text.compatible;
    if (compatible && context.ToPicture().Determinant() < 0) request.escapement = -request.escapement;
    request.orientation = compatible ? request.escapement : font.orientation / TenthsOfDegree;
    return request;
}

/// Numbers of glyphs in place of characters.
DecodedText GlyphsOf(std::u16string_view text) {
    DecodedText decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        decoded.starts.push_back(i);
        decoded.characters.push_back(vector::GlyphCodes + text[i]);
    }
    return decoded;
}

/// Only wide texts can be glyphs, whose numbers have 16 bits; bytes are characters whatever the options say.
DecodedText CharactersOf(DeviceContext& context, std::uint8_t charset, const Text& text) {
    if (text.wide.empty()) return context.Pages().Decode(text.bytes, charset);
    if ((text.options & Text::GlyphIndexes) != 0) return GlyphsOf(text.wide);
    DecodedText decoded = DecodeUtf16(text.wide);
    for (char32_t& character : decoded.characters)
        if (charset == SymbolCharset && character < 0x100) character += SymbolArea;
    return decoded;
}

/// The distances of the code units that belong to each character, as steps of the run.
std::vector<vector::Point> StepsOf(const DecodedText& decoded, const Text& text, double scale) {
    const bool both = (text.options & Text::Advance2d) != 0;
    const std::size_t units = text.advances.size() / (both ? 2 : 1);
    std::vector<vector::Point> steps(units == 0 ? 0 : decoded.starts.size());
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const std::size_t end = i + 1 < decoded.starts.size() ? decoded.starts[i + 1] : units;
        for (std::size_t unit = decoded.starts[i]; unit < std::min(end, units); ++unit) {
            steps[i].x += scale * text.advances[both ? 2 * unit : unit];
            if (both) steps[i].y -= scale * text.advances[2 * unit + 1];
        }
    }
    return steps;
}

void AlignAsSelected(const DeviceState& state, vector::TextRun& run) {
    constexpr std::uint32_t Horizontal = 6;
    constexpr std::uint32_t Right = 2;
    constexpr std::uint32_t Vertical = 24;
    constexpr std::uint32_t Bottom = 8;
    auto horizontal = vector::TextHorizontal::Left;
    if ((state.textAlign & Horizontal) == Horizontal) {
        horizontal = vector::TextHorizontal::Centre;
    } else if ((state.textAlign & Horizontal) == Right) {
        horizontal = vector::TextHorizontal::Right;
    }
    auto vertical = vector::TextVertical::Top;
    if ((state.textAlign & Vertical) == Vertical) {
        vertical = vector::TextVertical::Baseline;
    } else if ((state.textAlign & Vertical) == Bottom) {
        vertical = vector::TextVertical::Bottom;
    }
    vector::Align(run, horizontal, vertical);
}

}  // namespace

PlacedText PlaceText(DeviceContext& context, const Text& text, vector::Point reference) {
    const DeviceState& state = context.State();
    const Font& font = std::get<Font>(*state.font);
    const TextScale scale = ScaleOf(context, text);
    PlacedText placed;
    const vector::Point origin = context.ToPicture().Apply(reference);
    placed.toPicture = scale.toPicture;
    placed.toPicture.dx = origin.x;
    placed.toPicture.dy = origin.y;
    const std::size_t length = text.wide.empty() ? text.bytes.size() : text.wide.size();
    if (length == 0 || !context.Painter().Budget().Spend(vector::LayOutCost(length))) return placed;

    const vector::FontRequest request = RequestOf(context, font, text, scale.stepScale);
    const DecodedText decoded = CharactersOf(context, request.symbol ? SymbolCharset : font.charset, text);
    const std::vector<vector::Point> steps = StepsOf(decoded, text, scale.stepScale);
    std::shared_ptr<vector::Font> found = context.Fonts().Find(request, context.Painter().Budget());
    if ((text.options & Text::Advance2d) != 0) {
        placed.run = vector::LayOutText(std::move(found), decoded.characters, steps);
    } else {
        std::vector<double> along;
        along.reserve(steps.size());
        for (const vector::Point step : steps)
            along.push_back(step.x);
        placed.run =
            vector::LayOutText(std::move(found), decoded.characters, along,
                               state.characterExtra * scale.stepScale, state.breakExtra * scale.stepScale);
    }
    AlignAsSelected(state, placed.run);
    return placed;
}

}  // namespace tavrix::metafile
