#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>

#include "base/UpperCaseTable.h"

namespace tavrix {
namespace {

using CodePoint = std::uint32_t;

constexpr CodePoint Invalid = 0xFFFFFFFFU;

struct Character {
    CodePoint code = Invalid;  ///< Invalid for a byte that is no part of valid UTF-8
    std::size_t length = 1;    ///< bytes
};

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80U;
}

// Strict: no overlong forms, no surrogates, nothing above 10FFFF.
Character CharacterAt(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t offset) -> CodePoint {
        return at + offset < text.size() ? static_cast<unsigned char>(text[at + offset]) : 0U;
    };
    const auto follows = [&](std::size_t offset) { return (byte(offset) & 0xC0U) == 0x80U; };
    const CodePoint lead = byte(0);
    if (lead < 0x80U) return {lead, 1};
    if (lead >= 0xC2U && lead <= 0xDFU && follows(1)) {
        return {((lead & 0x1FU) << 6U) | (byte(1) & 0x3FU), 2};
    }
    if (lead >= 0xE0U && lead <= 0xEFU && follows(1) && follows(2)) {
        const CodePoint code = ((lead & 0x0FU) << 12U) | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU);
        if (code >= 0x800U && (code < 0xD800U || code > 0xDFFFU)) return {code, 3};
    }
    if (lead >= 0xF0U && lead <= 0xF4U && follows(1) && follows(2) && follows(3)) {
        const CodePoint code = ((lead & 0x07U) << 18U) | ((byte(1) & 0x3FU) << 12U) |
                               ((byte(2) & 0x3FU) << 6U) | (byte(3) & 0x3FU);
        if (code >= 0x10000U && code <= 0x10FFFFU) return {code, 4};
    }
    return {};
}

void AppendCode(std::string& text, CodePoint code) {
    const auto append = [&](CodePoint byte) { text.push_back(static_cast<char>(byte)); };
    if (code < 0x80U) {
        append(code);
    } else if (code < 0x800U) {
        append(0xC0U | (code >> 6U));
        append(0x80U | (code & 0x3FU));
    } else if (code < 0x10000U) {
        append(0xE0U | (code >> 12U));
        append(0x80U | ((code >> 6U) & 0x3FU));
        append(0x80U | (code & 0x3FU));
    } else {
        append(0xF0U | (code >> 18U));
        append(0x80U | ((code >> 12U) & 0x3FU));
        append(0x80U | ((code >> 6U) & 0x3FU));
        append(0x80U | (code & 0x3FU));
    }
}

char UpperAscii(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

CodePoint UpperCode(CodePoint code) {
    const auto* const range = std::ranges::lower_bound(UpperCaseRanges, code, {}, &UpperCaseRange::last);
    if (range == UpperCaseRanges.end() || code < range->first || (code - range->first) % range->step != 0) {
        return code;
    }
    return static_cast<CodePoint>(static_cast<std::int64_t>(code) + range->distance);
}

/// The byte offset of a character; the text's size when there are not so many.
std::size_t OffsetOf(std::string_view text, std::size_t character) {
    std::size_t at = 0;
    for (; character > 0 && at < text.size(); --character) {
        at += IsAscii(text[at]) ? 1 : CharacterAt(text, at).length;
    }
    return at;
}

// Windows-1252, bytes 80 to 9F. The five that it leaves undefined stand for the C1 controls of the same number.
constexpr std::array<std::uint16_t, 32> Windows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

CodePoint FromWindows1252(unsigned char byte) {
    return byte >= 0x80U && byte <= 0x9FU ? Windows1252[byte - 0x80U] : byte;
}

std::optional<char> ToWindows1252(CodePoint code) {
    if (code < 0x80U || (code >= 0xA0U && code <= 0xFFU)) return static_cast<char>(code);
    const auto* const found = std::ranges::find(Windows1252, code);
    if (found == Windows1252.end()) return std::nullopt;
    return static_cast<char>(0x80 + (found - Windows1252.begin()));
}

bool IsAsciiText(std::string_view text) {
    return std::ranges::all_of(text, IsAscii);
}

bool IsUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Character character = CharacterAt(text, at);
        if (character.code == Invalid) return false;
        at += character.length;
    }
    return true;
}

/// The parts of a decimal number, as pieces of its text.
struct NumberParts {
    bool negative = false;
    std::string_view whole;
    std::string_view decimals;
};

/// Empty when the text is no number.
std::optional<NumberParts> SplitNumber(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    std::string_view digits = text.substr(first, text.find_last_not_of(' ') + 1 - first);
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+')) digits.remove_prefix(1);

    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::string_view whole = digits.substr(0, point);
    const std::string_view decimals = point < digits.size() ? digits.substr(point + 1) : std::string_view();
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (whole.empty() && decimals.empty()) return std::nullopt;
    if (!std::ranges::all_of(whole, isDigit) || !std::ranges::all_of(decimals, isDigit)) return std::nullopt;
    return NumberParts{negative, whole, decimals};
}

/// Where the last component of a path begins.
std::size_t NameStart(std::string_view path) {
    const std::size_t last = path.find_last_of("\\/:");
    return last == std::string_view::npos ? 0 : last + 1;
}

}  // namespace

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count) {
        at += IsAscii(text[at]) ? 1 : CharacterAt(text, at).length;
    }
    return count;
}

std::string Left(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, OffsetOf(text, count)));
}

std::string Right(std::string_view text, std::size_t count) {
    const std::size_t all = CharacterCount(text);
    return From(text, all > count ? all - count : 0);
}

std::string From(std::string_view text, std::size_t start) {
    return std::string(text.substr(OffsetOf(text, start)));
}

std::string Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string UpperCase(std::string_view text) {
    std::string upper;
    upper.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        if (IsAscii(text[at])) {
            upper.push_back(UpperAscii(text[at++]));
            continue;
        }
        const Character character = CharacterAt(text, at);
        if (character.code == Invalid) {
            upper.push_back(text[at]);
        } else {
            AppendCode(upper, UpperCode(character.code));
        }
        at += character.length;
    }
    return upper;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    if (IsAsciiText(a) && IsAsciiText(b)) {
        return std::ranges::equal(a, b, {}, UpperAscii, UpperAscii);
    }
    return UpperCase(a) == UpperCase(b);
}

std::string WithUpperFirst(std::string_view text) {
    return UpperCase(Left(text, 1)).append(text.substr(OffsetOf(text, 1)));
}

bool EndsInIgnoringCase(std::string_view text, std::string_view ending) {
    return EqualIgnoringCase(Right(text, CharacterCount(ending)), ending);
}

std::string WithBackslash(std::string_view folder) {
    std::string path(folder);
    if (!path.ends_with('\\')) path.push_back('\\');
    return path;
}

std::string FolderOf(std::string_view path) {
    return std::string(path.substr(0, NameStart(path)));
}

std::string FileNameOf(std::string_view path) {
    return std::string(path.substr(NameStart(path)));
}

std::string DecodeTextFile(std::string_view bytes) {
    if (IsUtf8(bytes)) return std::string(bytes);
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 4);
    for (const char byte : bytes)
        AppendCode(text, FromWindows1252(static_cast<unsigned char>(byte)));
    return text;
}

std::string EncodeTextFile(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Character character = CharacterAt(text, at);
        const std::optional<char> byte = ToWindows1252(character.code);
        if (!byte) return std::string(text);
        bytes.push_back(*byte);
        at += character.length;
    }
    // Single bytes may look like UTF-8 by chance and would then be read back as something else.
    return DecodeTextFile(bytes) == text ? bytes : std::string(text);
}

std::optional<double> ParseNumber(std::string_view text) {
    const auto parts = SplitNumber(text);
    if (!parts) return std::nullopt;
    const std::string digits = std::string(parts->whole) + '.' + std::string(parts->decimals);
    double number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool overflow = read.ec == std::errc::result_out_of_range &&
                          parts->whole.find_first_not_of('0') != std::string_view::npos;
    if (overflow) number = std::numeric_limits<double>::infinity();
    return parts->negative ? -number : number;
}

std::optional<std::int16_t> ParseInteger(std::string_view text) {
    const std::optional<int> value = ParseLong(text);
    using Limits = std::numeric_limits<std::int16_t>;
    if (!value || *value < Limits::min() || *value > Limits::max()) return std::nullopt;
    return static_cast<std::int16_t>(*value);
}

std::optional<int> ParseLong(std::string_view text) {
    const auto number = SplitNumber(text);
    if (!number) return std::nullopt;
    const auto& [negative, whole, decimals] = *number;

    constexpr std::int64_t TooLarge = std::int64_t{1} << 40U;
    std::int64_t value = 0;
    for (const char digit : whole)
        value = std::min(value * 10 + (digit - '0'), TooLarge);
    if (!decimals.empty()) {
        const bool beyondHalf = decimals.find_first_not_of('0', 1) != std::string_view::npos;
        const bool half = decimals[0] == '5' && !beyondHalf;
        if (decimals[0] > '5' || (decimals[0] == '5' && beyondHalf) || (half && value % 2 == 1)) ++value;
    }
    if (negative) value = -value;
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(value);
}

}  // namespace tavrix
