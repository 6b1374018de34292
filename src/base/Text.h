#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavrix {

// Text in memory is UTF-8; a character is a code point. A byte that is no part of valid UTF-8 counts as one
// character and is kept as it is.

/// Carriage return and line feed, once and twice. The second is the paragraph break of all messages.
inline constexpr std::string_view NewLine = "\r\n";
inline constexpr std::string_view NewLine2 = "\r\n\r\n";

[[nodiscard]] std::size_t CharacterCount(std::string_view text);
/// The first `count` characters, or all of them.
[[nodiscard]] std::string Left(std::string_view text, std::size_t count);
/// The last `count` characters, or all of them.
[[nodiscard]] std::string Right(std::string_view text, std::size_t count);
/// The text from the character `start` (counted from 0) on.
[[nodiscard]] std::string From(std::string_view text, std::size_t start);

/// Without the blanks at both ends. Tabs and other white space stay.
[[nodiscard]] std::string Trim(std::string_view text);

/// Simple upper case, one character for one, whatever the locale.
[[nodiscard]] std::string UpperCase(std::string_view text);
[[nodiscard]] bool EqualIgnoringCase(std::string_view a, std::string_view b);
/// The text with its first character in upper case.
[[nodiscard]] std::string WithUpperFirst(std::string_view text);
/// Whether the text ends in `ending`, whatever the case.
[[nodiscard]] bool EndsInIgnoringCase(std::string_view text, std::string_view ending);

/// The folder with a backslash at its end, added where missing.
[[nodiscard]] std::string WithBackslash(std::string_view folder);
/// A path without its last component; the separator stays. Empty for a bare name.
[[nodiscard]] std::string FolderOf(std::string_view path);
/// The last component of a path, which holds no separator of any kind: backslash, slash or colon.
[[nodiscard]] std::string FileNameOf(std::string_view path);

/// The bytes of a text file as text: valid UTF-8 is taken as it is, all else as Windows-1252.
[[nodiscard]] std::string DecodeTextFile(std::string_view bytes);
/// The bytes to write: Windows-1252 where reading them back gives the same text, else UTF-8.
[[nodiscard]] std::string EncodeTextFile(std::string_view text);

/// A decimal integer with an optional sign and blanks around it, decimals rounded to the even neighbour.
/// Empty when the text is no number; a number outside 32 bits is empty too.
[[nodiscard]] std::optional<int> ParseLong(std::string_view text);
/// The same in 16 bits.
[[nodiscard]] std::optional<std::int16_t> ParseInteger(std::string_view text);
/// The number itself, with its decimals. Empty when the text is no number.
[[nodiscard]] std::optional<double> ParseNumber(std::string_view text);

}  // namespace tavrix
