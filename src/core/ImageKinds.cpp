#include "core/ImageKinds.h"

#include <algorithm>

#include "base/Text.h"

namespace tavrix {

const ImageKind* ImageKindOf(std::string_view path) {
    const auto* const found = std::ranges::find_if(
        ImageKinds, [path](const ImageKind& kind) { return EndsInIgnoringCase(path, kind.ending); });
    return found == ImageKinds.end() ? nullptr : found;
}

std::string PatternOf(ImagesShown shown) {
    std::string pattern;
    for (const ImageKind& kind : ImageKinds) {
        if (shown == ImagesShown::Opening && !kind.opens) continue;
        if (shown == ImagesShown::Slides && !kind.isSlide) continue;
        pattern += pattern.empty() ? "*" : ";*";
        for (const char c : kind.ending)
            pattern.push_back(c == '.' ? c : static_cast<char>(c - 'A' + 'a'));
    }
    return pattern;
}

}  // namespace tavrix
