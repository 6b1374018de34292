#include "imaging/metafile/CodePages.h"

#include <iconv.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <optional>

namespace tavrix::metafile {
namespace {

constexpr char32_t Unknown = 0xFFFD;

struct CharsetName {
    std::uint8_t charset;
    const char* codePage;
};

constexpr std::array<CharsetName, 17> Names{{
    {77, "MACINTOSH"},
    {128, "CP932"},
    {129, "CP949"},
    {130, "JOHAB"},
    {134, "CP936"},
    {136, "CP950"},
    {161, "CP1253"},
    {162, "CP1254"},
    {163, "CP1258"},
    {177, "CP1255"},
    {178, "CP1256"},
    {186, "CP1257"},
    {204, "CP1251"},
    {222, "CP874"},
    {238, "CP1250"},
    {254, "CP437"},
    {255, "CP437"},
}};

const char* CodePageOf(std::uint8_t charset) {
    for (const CharsetName& name : Names) {
        if (name.charset == charset) return name.codePage;
    }
    return "CP1252";
}

}  // namespace

DecodedText DecodeUtf16(std::u16string_view text) {
    DecodedText decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        decoded.starts.push_back(i);
        const char16_t unit = text[i];
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        const bool low = unit >= 0xDC00 && unit < 0xE000;
        if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            const auto upper = static_cast<char32_t>(unit - 0xD800);
            const auto lower = static_cast<char32_t>(text[++i] - 0xDC00);
            decoded.characters.push_back(0x10000 + (upper << 10U) + lower);
        } else {
            decoded.characters.push_back(high || low ? Unknown : char32_t{unit});
        }
    }
    return decoded;
}

class CodePages::Converter {
  public:
    explicit Converter(const char* codePage)
        : codePage_(codePage), handle_(iconv_open("UTF-32LE", codePage)) {}
    ~Converter() {
        if (Works()) iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    Converter(Converter&&) = delete;
    Converter& operator=(Converter&&) = delete;

    [[nodiscard]] std::string_view CodePage() const { return codePage_; }

    /// The character that the bytes start with, and how many of them it takes: one at least.
    [[nodiscard]] char32_t First(std::string_view bytes, std::size_t& taken) const {
        constexpr std::size_t MostBytes = 2;
        taken = 1;
        // A code page that is not installed: the letters that all share.
        if (!Works()) return static_cast<unsigned char>(bytes.front());
        for (std::size_t length = 1; length <= std::min(MostBytes, bytes.size()); ++length) {
            if (const std::optional<char32_t> character = Convert(bytes.substr(0, length))) {
                taken = length;
                return *character;
            }
            if (errno != EINVAL) break;
        }
        return Unknown;
    }

  private:
    [[nodiscard]] bool Works() const {
        // The library tells so that there is none.
        return handle_ != reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr)
    }

    [[nodiscard]] std::optional<char32_t> Convert(std::string_view bytes) const {
        std::array<char, 2> in{};
        bytes.copy(in.data(), in.size());
        std::array<char, 16> out{};
        char* from = in.data();
        char* into = out.data();
        std::size_t fromLeft = bytes.size();
        std::size_t intoLeft = out.size();
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        errno = 0;
        if (iconv(handle_, &from, &fromLeft, &into, &intoLeft) == static_cast<std::size_t>(-1))
            return std::nullopt;
        // Some code pages hold a letter back, in case a mark follows it.
        if (intoLeft == out.size()) iconv(handle_, nullptr, nullptr, &into, &intoLeft);
        if (intoLeft == out.size()) return std::nullopt;
        char32_t character = 0;
        std::memcpy(&character, out.data(), sizeof(character));
        return character;
    }

    std::string_view codePage_;
    iconv_t handle_;
};

CodePages::CodePages() = default;
CodePages::~CodePages() = default;

DecodedText CodePages::Decode(std::string_view bytes, std::uint8_t charset) {
    DecodedText decoded;
    if (charset == SymbolCharset) {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            decoded.starts.push_back(i);
            decoded.characters.push_back(SymbolArea + static_cast<unsigned char>(bytes[i]));
        }
        return decoded;
    }
    const char* codePage = CodePageOf(charset);
    if (!converter_ || converter_->CodePage() != codePage) converter_ = std::make_unique<Converter>(codePage);
    for (std::size_t at = 0; at < bytes.size();) {
        std::size_t taken = 1;
        decoded.starts.push_back(at);
        decoded.characters.push_back(converter_->First(bytes.substr(at), taken));
        at += taken;
    }
    return decoded;
}

}  // namespace tavrix::metafile
