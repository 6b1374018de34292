#include "backends/headless/HeadlessFont.h"

#include <algorithm>
#include <sstream>

#include "base/Text.h"

namespace tavrix::headless {

namespace {

std::string WithoutMarks(const std::string& caption) {
    std::string shown;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;
        if (caption[i] != '\r') shown += caption[i];
    }
    return shown;
}

}  // namespace

forms::PixelSize HeadlessFont::SizeOf(const std::string& caption) const {
    forms::PixelSize size;
    std::istringstream lines(WithoutMarks(caption));
    for (std::string line; std::getline(lines, line);) {
        size.width = std::max(size.width, width * static_cast<int>(CharacterCount(line)));
        size.height += height;
    }
    size.height = std::max(size.height, height);
    return size;
}

int HeadlessFont::HeightAt(const std::string& caption, int lineWidth) const {
    const int room = std::max(lineWidth / width, 1);
    int count = 0;
    std::istringstream lines(WithoutMarks(caption));
    for (std::string line; std::getline(lines, line);) {
        ++count;
        int used = 0;
        std::istringstream words(line);
        for (std::string word; words >> word;) {
            const int length = static_cast<int>(CharacterCount(word));
            if (used > 0 && used + 1 + length > room) {
                ++count;
                used = 0;
            }
            used += (used > 0 ? 1 : 0) + length;
        }
    }
    return height * std::max(count, 1);
}

}  // namespace tavrix::headless
