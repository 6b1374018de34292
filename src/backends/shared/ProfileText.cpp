#include "backends/shared/ProfileText.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/Text.h"

namespace tavrix {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

struct Line {
    std::string_view text;  ///< without its line end
    std::string_view end;   ///< "\r\n", "\n", "\r" or, at the end of the file, nothing
};

std::vector<Line> LinesOf(std::string_view text) {
    std::vector<Line> lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find_first_of("\r\n"), text.size());
        std::size_t end = length < text.size() ? 1 : 0;
        if (text.substr(length).starts_with("\r\n")) end = 2;
        lines.push_back({text.substr(0, length), text.substr(length, end)});
        text.remove_prefix(length + end);
    }
    return lines;
}

std::string_view Stripped(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::optional<std::string_view> HeadingOf(std::string_view line) {
    line = Stripped(line);
    if (!line.starts_with('[')) return std::nullopt;
    const std::size_t end = line.find(']');
    return Stripped(end == std::string_view::npos ? line.substr(1) : line.substr(1, end - 1));
}

struct KeyLine {
    std::string_view before;  ///< all up to the value, the equals sign included
    std::string_view key;
    std::string_view value;
};

std::optional<KeyLine> KeyOf(std::string_view line) {
    const std::string_view stripped = Stripped(line);
    if (stripped.starts_with(';') || stripped.starts_with('[')) return std::nullopt;
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    std::string_view value = Stripped(line.substr(equals + 1));
    const std::size_t start = std::min(line.find_first_not_of(" \t", equals + 1), line.size());
    if (value.size() >= 2 && value.front() == value.back() &&
        (value.front() == '"' || value.front() == '\'')) {
        value = value.substr(1, value.size() - 2);
    }
    return KeyLine{line.substr(0, start), Stripped(line.substr(0, equals)), value};
}

/// The lines of a section, from the one behind its heading to the one before the next heading.
struct Range {
    std::size_t first = 0;
    std::size_t end = 0;
};

std::optional<Range> FindSection(const std::vector<Line>& lines, std::string_view section) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto heading = HeadingOf(lines[i].text);
        if (!heading || !EqualIgnoringCase(*heading, Stripped(section))) continue;
        Range range{i + 1, i + 1};
        while (range.end < lines.size() && !HeadingOf(lines[range.end].text))
            ++range.end;
        return range;
    }
    return std::nullopt;
}

std::string ValueText(std::string value) {
    std::ranges::replace_if(
        value, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    const std::string line = "=" + value;
    return KeyOf(line)->value == value ? value : '"' + value + '"';
}

std::string MergedText(std::string_view text, std::string_view section,
                       std::span<const ProfileEntry> entries) {
    const std::vector<Line> lines = LinesOf(text);
    const auto firstEnd = std::ranges::find_if(lines, [](const Line& line) { return !line.end.empty(); });
    const std::string_view newLine = firstEnd == lines.end() ? NewLine : firstEnd->end;
    const std::optional<Range> range = FindSection(lines, section);

    // What the section's lines become, and what is to be added. Of entries with one key the last counts.
    std::vector<std::optional<std::string>> changed(lines.size());
    std::vector<ProfileEntry> added;
    for (const auto& [key, value] : entries) {
        bool found = false;
        for (std::size_t i = range ? range->first : 0; range && i < range->end && !found; ++i) {
            const auto line = KeyOf(lines[i].text);
            if (!line || !EqualIgnoringCase(line->key, Stripped(key))) continue;
            found = true;
            changed[i].reset();
            if (line->value != value) changed[i] = std::string(line->before) + ValueText(value);
        }
        if (found) continue;
        const auto same = std::ranges::find_if(added, [&, name = key](const ProfileEntry& entry) {
            return EqualIgnoringCase(entry.first, name);
        });
        if (same != added.end()) {
            same->second = value;
        } else {
            added.emplace_back(key, value);
        }
    }

    // New keys stand before the blank lines that part a section from the next.
    std::size_t place = range ? range->end : lines.size();
    while (range && place > range->first && Stripped(lines[place - 1].text).empty())
        --place;

    std::string merged;
    merged.reserve(text.size() + 4096);
    const auto addNew = [&] {
        if (added.empty() && range) return;
        if (!merged.empty() && !merged.ends_with('\n') && !merged.ends_with('\r')) merged += newLine;
        if (!range) {
            if (!merged.empty()) merged += newLine;
            merged.append("[").append(section).append("]").append(newLine);
        }
        for (const auto& [key, value] : added) {
            merged.append(key).append("=").append(ValueText(value)).append(newLine);
        }
    };
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i == place) addNew();
        if (changed[i]) {
            merged += *changed[i];
        } else {
            merged += lines[i].text;
        }
        merged += lines[i].end;
    }
    if (place == lines.size()) addNew();
    return merged;
}

}  // namespace

ProfileSection ReadProfileSection(std::string_view bytes, std::string_view section) {
    if (bytes.starts_with(ByteOrderMark)) bytes.remove_prefix(ByteOrderMark.size());
    const std::string text = DecodeTextFile(bytes);
    const std::vector<Line> lines = LinesOf(text);
    ProfileSection keys;
    const std::optional<Range> range = FindSection(lines, section);
    for (std::size_t i = range ? range->first : 0; range && i < range->end; ++i) {
        if (const auto line = KeyOf(lines[i].text))
            keys.Add(std::string(line->key), std::string(line->value));
    }
    return keys;
}

std::string MergeProfileText(std::string_view bytes, std::string_view section,
                             std::span<const ProfileEntry> entries) {
    const bool marked = bytes.starts_with(ByteOrderMark);
    if (marked) bytes.remove_prefix(ByteOrderMark.size());
    const std::string text = DecodeTextFile(bytes);
    const std::string merged = MergedText(text, section, entries);
    const bool plain =
        std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
    const bool utf8 = marked || (text == bytes && !plain);
    return (marked ? std::string(ByteOrderMark) : std::string()) + (utf8 ? merged : EncodeTextFile(merged));
}

}  // namespace tavrix
