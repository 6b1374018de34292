#include "imaging/vector/FontBook.h"

#include <cmath>
#include <list>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "imaging/vector/FontFamilies.h"
#include "imaging/vector/FontFile.h"
#include "imaging/vector/FontFinder.h"

namespace tavrix::vector {
namespace {

/// Font files that are open at a time.
constexpr std::size_t MostFiles = 24;
/// Characters that a font remembers the place of.
constexpr std::size_t MostCharacters = 4096;
/// Questions to the catalogue, which take a millisecond each. Later ones get what was found before.
constexpr int MostSearches = 400;
constexpr double DefaultHeight = 12;
constexpr double Slant = 0.2;
constexpr char32_t SymbolCodes = 0xF000;

/// The font files that are open, and what the catalogue has said. Shared by the fonts of a book, which look for missing
/// characters in other files.
class Files {
  public:
    [[nodiscard]] FoundFont Find(const FontRequest& request) {
        const auto key = KeyOf(request);
        if (const auto known = found_.find(key); known != found_.end()) return known->second;
        if (++searches_ > MostSearches) return anyFont_;
        anyFont_ = finder_.Find(request);
        return found_.emplace(key, anyFont_).first->second;
    }

    /// A font that has the character; without a path where none is found.
    [[nodiscard]] FoundFont FindWith(const FontRequest& request, char32_t character) {
        if (!finder_.Knows(character)) return {};
        for (const FoundFont& font : substitutes_) {
            if (font.bold != (request.weight >= 600) || font.slanted != request.italic) continue;
            if (const auto file = Open(font); file && file->GlyphOf(character) != 0) return font;
        }
        if (++searches_ > MostSearches) return {};
        FoundFont font = finder_.Find(request, character);
        if (const auto file = Open(font); !file || file->GlyphOf(character) == 0) return {};
        substitutes_.push_back(font);
        return font;
    }

    [[nodiscard]] std::shared_ptr<FontFile> Open(const FoundFont& font) {
        if (font.path.empty()) return nullptr;
        for (auto it = open_.begin(); it != open_.end(); ++it) {
            if (it->path != font.path || it->index != font.index) continue;
            open_.splice(open_.begin(), open_, it);
            return open_.front().file;
        }
        if (!library_) library_ = OpenFontLibrary();
        auto file = FontFile::Open(library_, font.path, font.index);
        if (!file) return nullptr;
        open_.push_front({font.path, font.index, file});
        if (open_.size() > MostFiles) open_.pop_back();
        return file;
    }

  private:
    struct Entry {
        std::string path;
        int index = 0;
        std::shared_ptr<FontFile> file;
    };
    using Key = std::tuple<std::string, int, bool, bool, FontKind>;

    static Key KeyOf(const FontRequest& request) {
        return {request.family, request.weight, request.italic, request.fixedPitch, request.kind};
    }

    FontFinder finder_;
    std::shared_ptr<FontLibrary> library_;
    std::list<Entry> open_;  // the last one used in front
    std::map<Key, FoundFont> found_;
    std::vector<FoundFont> substitutes_;
    FoundFont anyFont_;
    int searches_ = 0;
};

double Finite(double value, double otherwise) {
    return std::isfinite(value) && std::abs(value) < MaxCoordinate ? value : otherwise;
}

class SizedFont : public Font {
  public:
    SizedFont(const FontRequest& request, const FoundFont& found, std::shared_ptr<FontFile> file,
              std::shared_ptr<Files> files)
        : request_(request),
          found_(found),
          file_(std::move(file)),
          files_(std::move(files)),
          symbols_(SymbolSetOf(request.family)) {
        const FontMeasures& m = file_->Measures();
        const double height = Finite(request.height, 0);
        if (height > 0)
            scaleY_ = height / (m.ascent + m.descent);
        else
            scaleY_ = (height < 0 ? -height : DefaultHeight) / m.unitsPerEm;
        scaleX_ = scaleY_;
        if (const double width = std::abs(Finite(request.width, 0)); width > 0)
            scaleX_ = width / m.averageWidth;
    }

    [[nodiscard]] const FontRequest& Request() const noexcept override { return request_; }
    [[nodiscard]] double Ascent() const noexcept override { return file_->Measures().ascent * scaleY_; }
    [[nodiscard]] double Descent() const noexcept override { return file_->Measures().descent * scaleY_; }
    [[nodiscard]] double InternalLeading() const noexcept override {
        return Ascent() + Descent() - file_->Measures().unitsPerEm * scaleY_;
    }
    [[nodiscard]] double AverageWidth() const noexcept override {
        return file_->Measures().averageWidth * scaleX_;
    }
    [[nodiscard]] double UnderlinePosition() const noexcept override {
        return -file_->Measures().underlinePosition * scaleY_;
    }
    [[nodiscard]] double StrikeOutPosition() const noexcept override {
        return -file_->Measures().strikeOutPosition * scaleY_;
    }
    [[nodiscard]] double LineThickness() const noexcept override {
        return file_->Measures().underlineThickness * scaleY_;
    }

    [[nodiscard]] double Advance(char32_t character) noexcept override {
        try {
            const Place& place = Find(character);
            return place.file->Load(place.glyph).advance * Fit(*place.file) * scaleX_;
        } catch (const std::exception&) {
            return 0;
        }
    }

    void AddOutline(Path& path, char32_t character, const Affine& map) noexcept override {
        try {
            const Place& place = Find(character);
            const FontFile::Glyph& glyph = place.file->Load(place.glyph);
            if (glyph.outline.Empty()) return;
            const double fit = Fit(*place.file);
            const double slant = request_.italic && !place.slanted ? Slant : 0;
            const Affine toText{fit * scaleX_, 0, fit * scaleX_ * slant, -fit * scaleY_, 0, 0};
            path.Append(glyph.outline.Transformed(toText.Then(map)));
            if (request_.weight >= 600 && !place.bold) Thicken(path, glyph, toText, map);
        } catch (const std::exception&) {
            // Without memory the character stays away.
        }
    }

  private:
    /// Where a character is found.
    struct Place {
        std::shared_ptr<FontFile> file;
        std::uint32_t glyph = 0;
        bool bold = false;
        bool slanted = false;
    };

    /// A light font looks bold with a second copy beside the first one.
    void Thicken(Path& path, const FontFile::Glyph& glyph, const Affine& toText, const Affine& map) const {
        const double by = file_->Measures().unitsPerEm * scaleX_ / 28;
        path.Append(glyph.outline.Transformed(toText.Then(Affine::Shift(by, 0)).Then(map)));
    }

    /// What units of another file are in units of this font's.
    [[nodiscard]] double Fit(const FontFile& file) const {
        return &file == file_.get() ? 1 : file_->Measures().unitsPerEm / file.Measures().unitsPerEm;
    }

    [[nodiscard]] const Place& Find(char32_t character) {
        if (const auto known = places_.find(character); known != places_.end()) return known->second;
        if (places_.size() >= MostCharacters) places_.clear();
        return places_.emplace(character, Search(character)).first->second;
    }

    [[nodiscard]] Place Search(char32_t character) {
        if (character >= GlyphCodes) return SearchGlyph(static_cast<std::uint32_t>(character - GlyphCodes));
        if (character >= SymbolCodes + 0x20 && character <= SymbolCodes + 0xFF)
            return SearchSymbol(character);
        return SearchText(character);
    }

    [[nodiscard]] Place SearchText(char32_t character) {
        Place own{file_, file_->GlyphOf(character), found_.bold, found_.slanted};
        if (own.glyph != 0) return own;
        const FoundFont other = files_->FindWith(request_, character);
        auto file = files_->Open(other);
        if (!file) return own;
        const std::uint32_t glyph = file->GlyphOf(character);
        return {std::move(file), glyph, other.bold, other.slanted};
    }

    [[nodiscard]] Place SearchGlyph(std::uint32_t glyph) {
        if (found_.sameFamily && glyph < file_->GlyphCount())
            return {file_, glyph, found_.bold, found_.slanted};
        return SearchText(CharacterOfGlyph(glyph));
    }

    /// A code of a font of pictures: in the font itself if it is one, otherwise by the characters that look like them.
    [[nodiscard]] Place SearchSymbol(char32_t character) {
        const auto code = static_cast<unsigned>(character - SymbolCodes);
        if (file_->OfSymbols() || found_.sameFamily) {
            for (const char32_t own : {character, static_cast<char32_t>(code)})
                if (const std::uint32_t glyph = file_->GlyphOf(own); glyph != 0)
                    return {file_, glyph, found_.bold, found_.slanted};
        }
        const char32_t alike = SymbolCharacter(symbols_, code);
        return SearchText(alike != 0 ? alike : static_cast<char32_t>(code));
    }

    FontRequest request_;
    FoundFont found_;
    std::shared_ptr<FontFile> file_;
    std::shared_ptr<Files> files_;
    SymbolSet symbols_;
    double scaleX_ = 1;
    double scaleY_ = 1;
    std::unordered_map<char32_t, Place> places_;
};

}  // namespace

class FontBook::Shelf {
  public:
    [[nodiscard]] std::shared_ptr<Font> Find(const FontRequest& request) {
        const FoundFont found = files_->Find(request);
        auto file = files_->Open(found);
        if (!file) return nullptr;
        return std::make_shared<SizedFont>(request, found, std::move(file), files_);
    }

  private:
    std::shared_ptr<Files> files_ = std::make_shared<Files>();
};

FontBook::FontBook() = default;
FontBook::~FontBook() = default;

std::shared_ptr<Font> FontBook::Find(const FontRequest& request) noexcept {
    try {
        if (!shelf_) shelf_ = std::make_unique<Shelf>();
        return shelf_->Find(request);
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace tavrix::vector
