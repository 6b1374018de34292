#include "platform/forms/BoxText.h"

#include <string_view>
#include <vector>

#include "base/Text.h"

namespace tavrix::forms {
namespace {

constexpr std::size_t LongestWord = 300;
constexpr std::size_t LongestLine = 1000;
constexpr std::size_t LongestText = 4000;
constexpr std::size_t MostLines = 40;
constexpr std::string_view Between = "...";

std::string Shortened(std::string_view text, std::size_t longest) {
    if (text.size() <= longest || CharacterCount(text) <= longest) return std::string(text);
    const std::size_t end = (longest - Between.size()) / 2;
    return Left(text, longest - Between.size() - end).append(Between).append(Right(text, end));
}

std::vector<std::string_view> Split(std::string_view text, char at) {
    std::vector<std::string_view> parts;
    for (std::size_t end = text.find(at); end != std::string_view::npos; end = text.find(at)) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
}

std::string WithShortWords(std::string_view line) {
    std::string shortened;
    for (const std::string_view word : Split(line, ' ')) {
        if (word.data() != line.data()) shortened.push_back(' ');
        shortened.append(Shortened(word, LongestWord));
    }
    return shortened;
}

}  // namespace

std::string FittingInABox(const std::string& text) {
    // Whole first, since a file may hold lines and words by the million.
    const std::string whole = Shortened(text, LongestText);
    const std::vector<std::string_view> lines = Split(whole, '\n');
    std::string fitting;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool many = lines.size() > MostLines;
        if (many && i == MostLines / 2) fitting.append(Between).append(NewLine);
        if (many && i >= MostLines / 2 && i < lines.size() - (MostLines / 2 - 1)) continue;
        fitting.append(Shortened(WithShortWords(lines[i]), LongestLine));
        if (i + 1 < lines.size()) fitting.push_back('\n');
    }
    return fitting;
}

}  // namespace tavrix::forms
