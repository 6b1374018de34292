#include "imaging/vector/FontFile.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <exception>
#include <type_traits>
#include <unordered_map>
#include <utility>

namespace tavrix::vector {

class FontLibrary {
  public:
    FontLibrary() {
        FT_Library library = nullptr;
        if (FT_Init_FreeType(&library) == 0) library_.reset(library);
    }
    [[nodiscard]] FT_Library Handle() const { return library_.get(); }

  private:
    struct Release {
        void operator()(FT_Library library) const { FT_Done_FreeType(library); }
    };
    std::unique_ptr<std::remove_pointer_t<FT_Library>, Release> library_;
};

namespace {

/// Outlines that are kept of one font.
constexpr std::size_t MostGlyphs = 1024;

struct ReleaseFace {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, ReleaseFace>;

Point ToPoint(const FT_Vector* vector) {
    return {double(vector->x), double(vector->y)};
}

/// Takes the outline in; no exception may pass through the library.
struct OutlineTaker {
    Path path;

    template <class Step>
    static int Guarded(void* user, Step step) noexcept {
        try {
            step(static_cast<OutlineTaker*>(user)->path);
            return 0;
        } catch (const std::exception&) {
            return 1;
        }
    }
    static int MoveTo(const FT_Vector* to, void* user) {
        return Guarded(user, [&](Path& outline) {
            outline.Close();
            outline.MoveTo(ToPoint(to));
        });
    }
    static int LineTo(const FT_Vector* to, void* user) {
        return Guarded(user, [&](Path& outline) { outline.LineTo(ToPoint(to)); });
    }
    static int ConicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
        return Guarded(user, [&](Path& outline) {
            const Point c = ToPoint(control) * (2.0 / 3);
            const Point end = ToPoint(to);
            outline.CubicTo(outline.Current() * (1.0 / 3) + c, end * (1.0 / 3) + c, end);
        });
    }
    static int CubicTo(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to,
                       void* user) {
        return Guarded(
            user, [&](Path& outline) { outline.CubicTo(ToPoint(control1), ToPoint(control2), ToPoint(to)); });
    }
};

class OutlineFontFile : public FontFile {
  public:
    OutlineFontFile(std::shared_ptr<FontLibrary> library, Face face)
        : library_(std::move(library)), face_(std::move(face)) {
        if (FT_Select_Charmap(face_.get(), FT_ENCODING_UNICODE) != 0)
            ofSymbols_ = FT_Select_Charmap(face_.get(), FT_ENCODING_MS_SYMBOL) == 0;
        else
            ofSymbols_ = face_->charmap != nullptr && face_->charmap->encoding == FT_ENCODING_MS_SYMBOL;
        Measure();
    }

    [[nodiscard]] const FontMeasures& Measures() const override { return measures_; }
    [[nodiscard]] bool OfSymbols() const override { return ofSymbols_; }
    [[nodiscard]] std::uint32_t GlyphCount() const override {
        return static_cast<std::uint32_t>(std::max(face_->num_glyphs, FT_Long{0}));
    }
    [[nodiscard]] std::uint32_t GlyphOf(char32_t character) override {
        return FT_Get_Char_Index(face_.get(), character);
    }

    [[nodiscard]] const Glyph& Load(std::uint32_t glyph) override {
        if (const auto found = glyphs_.find(glyph); found != glyphs_.end()) return found->second;
        if (glyphs_.size() >= MostGlyphs) glyphs_.clear();
        return glyphs_.emplace(glyph, Read(glyph)).first->second;
    }

  private:
    void Measure() {
        FontMeasures& m = measures_;
        m.unitsPerEm = face_->units_per_EM > 0 ? face_->units_per_EM : 1000;
        m.ascent = face_->ascender;
        m.descent = -double(face_->descender);
        m.averageWidth = m.unitsPerEm / 2;
        m.underlinePosition = face_->underline_position;
        m.underlineThickness = face_->underline_thickness;
        m.strikeOutPosition = m.unitsPerEm / 4;
        const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face_.get(), FT_SFNT_OS2));
        if (os2 != nullptr && os2->version != 0xFFFFU) {
            if (os2->usWinAscent + os2->usWinDescent > 0) {
                m.ascent = os2->usWinAscent;
                m.descent = os2->usWinDescent;
            }
            if (os2->xAvgCharWidth > 0) m.averageWidth = os2->xAvgCharWidth;
            if (os2->yStrikeoutPosition > 0) m.strikeOutPosition = os2->yStrikeoutPosition;
        }
        if (!(m.ascent > 0)) m.ascent = m.unitsPerEm * 0.8;
        if (!(m.descent >= 0)) m.descent = m.unitsPerEm * 0.2;
        if (!(m.underlineThickness > 0)) m.underlineThickness = m.unitsPerEm / 20;
        if (!(m.underlinePosition < 0)) m.underlinePosition = -m.unitsPerEm / 10;
    }

    [[nodiscard]] Glyph Read(std::uint32_t glyph) {
        if (FT_Load_Glyph(face_.get(), glyph,
                          FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP | FT_LOAD_IGNORE_TRANSFORM) != 0)
            return {};
        Glyph result;
        result.advance = double(face_->glyph->advance.x);
        if (face_->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return result;
        const FT_Outline_Funcs steps{
            OutlineTaker::MoveTo, OutlineTaker::LineTo, OutlineTaker::ConicTo, OutlineTaker::CubicTo, 0, 0};
        OutlineTaker taker;
        if (FT_Outline_Decompose(&face_->glyph->outline, &steps, &taker) != 0) return result;
        taker.path.Close();
        // All fonts alike, so that overlapping outlines of several add up. The library's own reversal would let a
        // figure that ends with a curve start with one of its control points, which no decomposing takes.
        const bool turned = FT_Outline_Get_Orientation(&face_->glyph->outline) == FT_ORIENTATION_POSTSCRIPT;
        result.outline = turned ? taker.path.Reversed() : std::move(taker.path);
        return result;
    }

    std::shared_ptr<FontLibrary> library_;  // before the face, which needs it to the end
    Face face_;
    bool ofSymbols_ = false;
    FontMeasures measures_;
    std::unordered_map<std::uint32_t, Glyph> glyphs_;
};

}  // namespace

std::shared_ptr<FontFile> FontFile::Open(const std::shared_ptr<FontLibrary>& library, const std::string& path,
                                         int index) {
    FT_Face opened = nullptr;
    if (!library || library->Handle() == nullptr) return nullptr;
    if (FT_New_Face(library->Handle(), path.c_str(), index, &opened) != 0) return nullptr;
    Face face(opened);
    if (!FT_IS_SCALABLE(face.get())) return nullptr;
    return std::make_shared<OutlineFontFile>(library, std::move(face));
}

std::shared_ptr<FontLibrary> OpenFontLibrary() {
    return std::make_shared<FontLibrary>();
}

}  // namespace tavrix::vector
