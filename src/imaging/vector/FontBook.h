#pragma once

#include <memory>

#include "imaging/vector/FontRequest.h"
#include "imaging/vector/Path.h"

namespace tavrix::vector {

/// Text may be told in glyphs of the font that is asked for: this and the number of one stands for it. In a font that
/// stands in for another, it stands for the character that the classic outline fonts have there; that is a guess.
inline constexpr char32_t GlyphCodes = 0x200000;

/// A font at a size. Lengths are those of the request's units, y downwards, not turned. May be kept as long as one
/// likes, also beyond the book it comes from. Not for two threads at a time, and neither are fonts of one book.
class Font {
  public:
    Font() = default;
    virtual ~Font() = default;
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;
    Font(Font&&) = delete;
    Font& operator=(Font&&) = delete;

    [[nodiscard]] virtual const FontRequest& Request() const noexcept = 0;
    /// Above and below the baseline, both positive. Their sum is the height of a line.
    [[nodiscard]] virtual double Ascent() const noexcept = 0;
    [[nodiscard]] virtual double Descent() const noexcept = 0;
    /// The part of a line's height beyond the em.
    [[nodiscard]] virtual double InternalLeading() const noexcept = 0;
    [[nodiscard]] virtual double AverageWidth() const noexcept = 0;
    /// How far the next character is from this one's start.
    [[nodiscard]] virtual double Advance(char32_t character) noexcept = 0;
    /// Adds the outline of a character that starts at the origin, mapped.
    virtual void AddOutline(Path& path, char32_t character, const Affine& map) noexcept = 0;
    /// The middle of an underline and of a strike-out below the baseline (above: negative), and how thick they are.
    [[nodiscard]] virtual double UnderlinePosition() const noexcept = 0;
    [[nodiscard]] virtual double StrikeOutPosition() const noexcept = 0;
    [[nodiscard]] virtual double LineThickness() const noexcept = 0;
};

/// Finds fonts and keeps those found, up to a bound. Nothing is loaded before the first request. An object is for one
/// thread at a time; different ones may be used by different threads.
class FontBook {
  public:
    FontBook();
    ~FontBook();
    FontBook(const FontBook&) = delete;
    FontBook& operator=(const FontBook&) = delete;
    FontBook(FontBook&&) = delete;
    FontBook& operator=(FontBook&&) = delete;

    /// The font that comes nearest to the request; null where no outline font is installed at all.
    [[nodiscard]] std::shared_ptr<Font> Find(const FontRequest& request) noexcept;

  private:
    class Shelf;
    std::unique_ptr<Shelf> shelf_;
};

}  // namespace tavrix::vector
