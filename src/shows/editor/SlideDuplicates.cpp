#include "shows/editor/SlideDuplicates.h"

#include <unordered_map>
#include <unordered_set>

#include "base/Text.h"

namespace tavrix {
namespace {

/// A slide as it is compared: in upper case, behind the folder of the show where it has no drive. What a show without a
/// folder has is compared as it stands.
std::string ComparedPath(const std::string& slide, const ShowFolder& folder) {
    const bool relative = slide.find(':') == std::string::npos;
    return UpperCase(relative && !folder.Path().empty() ? folder.SlidePath(slide) : slide);
}

}  // namespace

std::vector<std::string> DuplicateSlides(std::span<const std::string> slides, const ShowFolder& folder) {
    std::unordered_map<std::string, int> times;
    times.reserve(slides.size());
    std::vector<std::string> duplicates;
    for (const std::string& slide : slides) {
        std::string path = ComparedPath(slide, folder);
        if (++times[path] == 2) duplicates.push_back(std::move(path));
    }
    return duplicates;
}

std::vector<int> RowsOfSlides(std::span<const std::string> paths, std::span<const std::string> slides,
                              const ShowFolder& folder) {
    const std::unordered_set<std::string> wanted(paths.begin(), paths.end());
    std::vector<int> rows;
    for (std::size_t row = 0; row < slides.size(); ++row) {
        if (wanted.contains(UpperCase(slides[row])) || wanted.contains(ComparedPath(slides[row], folder))) {
            rows.push_back(static_cast<int>(row));
        }
    }
    return rows;
}

}  // namespace tavrix
