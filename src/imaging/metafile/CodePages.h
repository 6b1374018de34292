#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavrix::metafile {

/// The characters of a text, and where each begins in it.
struct DecodedText {
    std::u32string characters;
    std::vector<std::size_t> starts;  ///< one a character, counted in bytes or code units
};

/// The characters of UTF-16. What is no character becomes U+FFFD.
[[nodiscard]] DecodedText DecodeUtf16(std::u16string_view text);

/// Turns bytes into characters by the code page of a font's character set. Keeps the code page that was used last.
class CodePages {
  public:
    CodePages();
    ~CodePages();
    CodePages(const CodePages&) = delete;
    CodePages& operator=(const CodePages&) = delete;
    CodePages(CodePages&&) = delete;
    CodePages& operator=(CodePages&&) = delete;

    /// Bytes that are no character become U+FFFD. The character set of symbols has its own characters from U+F000 on.
    [[nodiscard]] DecodedText Decode(std::string_view bytes, std::uint8_t charset);

  private:
    class Converter;
    std::unique_ptr<Converter> converter_;
};

inline constexpr std::uint8_t SymbolCharset = 2;
inline constexpr char32_t SymbolArea = 0xF000;

}  // namespace tavrix::metafile
