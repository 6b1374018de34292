#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "imaging/vector/Path.h"

namespace tavrix::vector {

/// The library that reads font files, for one thread at a time.
class FontLibrary;

/// Measures of a font, in its own units, y upwards from the baseline.
struct FontMeasures {
    double unitsPerEm = 1;
    double ascent = 1;
    double descent = 0;
    double averageWidth = 0.5;
    double underlinePosition = 0;  ///< its middle; below the baseline: negative
    double underlineThickness = 0;
    double strikeOutPosition = 0;
};

/// An outline font in a file.
class FontFile {
  public:
    /// Null where the file cannot be read or holds no outlines.
    [[nodiscard]] static std::shared_ptr<FontFile> Open(const std::shared_ptr<FontLibrary>& library,
                                                        const std::string& path, int index);
    FontFile() = default;
    virtual ~FontFile() = default;
    FontFile(const FontFile&) = delete;
    FontFile& operator=(const FontFile&) = delete;
    FontFile(FontFile&&) = delete;
    FontFile& operator=(FontFile&&) = delete;

    [[nodiscard]] virtual const FontMeasures& Measures() const = 0;
    /// Whether the font has codes of its own instead of characters (U+F020 to U+F0FF).
    [[nodiscard]] virtual bool OfSymbols() const = 0;
    [[nodiscard]] virtual std::uint32_t GlyphCount() const = 0;
    /// The glyph of a character; 0: it has none.
    [[nodiscard]] virtual std::uint32_t GlyphOf(char32_t character) = 0;

    struct Glyph {
        Path outline;  ///< in the font's units, y upwards
        double advance = 0;
    };
    /// Loads the glyph if it is not at hand. Empty for one that cannot be read. Good until the next call.
    [[nodiscard]] virtual const Glyph& Load(std::uint32_t glyph) = 0;
};

[[nodiscard]] std::shared_ptr<FontLibrary> OpenFontLibrary();

}  // namespace tavrix::vector
