#include "backends/shared/NameList.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "base/Text.h"
#include "platform/services/DrivePath.h"

namespace tavrix {

PatternList::PatternList(std::string_view patterns) {
    while (!patterns.empty()) {
        const std::size_t end = std::min(patterns.find(';'), patterns.size());
        std::string pattern = Trim(patterns.substr(0, end));
        if (!pattern.empty()) patterns_.push_back(std::move(pattern));
        patterns.remove_prefix(std::min(end + 1, patterns.size()));
    }
    if (patterns_.empty()) patterns_.emplace_back("*.*");
}

bool PatternList::Matches(std::string_view name) const {
    return std::ranges::any_of(patterns_,
                               [&](const std::string& pattern) { return MatchesPattern(name, pattern); });
}

namespace {

struct Keyed {
    std::string upper;
    std::string name;
    std::size_t place = 0;  ///< before it was sorted

    bool operator<(const Keyed& other) const {
        const int order = upper.compare(other.upper);
        return order != 0 ? order < 0 : name < other.name;
    }
};

std::vector<Keyed> Sorted(std::vector<std::string>& names) {
    std::vector<Keyed> keyed;
    keyed.reserve(names.size());
    for (std::string& name : names) {
        std::string upper = UpperCase(name);
        keyed.push_back({std::move(upper), std::move(name), keyed.size()});
    }
    std::ranges::sort(keyed, std::less<>());
    return keyed;
}

}  // namespace

void SortAsListed(std::vector<std::string>& names) {
    std::vector<Keyed> sorted = Sorted(names);
    std::ranges::transform(sorted, names.begin(), [](Keyed& entry) { return std::move(entry.name); });
}

void SortAsListed(std::vector<std::string>& names, std::vector<std::uint64_t>& numbers) {
    std::vector<Keyed> sorted = Sorted(names);
    const std::vector<std::uint64_t> before = numbers;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        names[i] = std::move(sorted[i].name);
        numbers[i] = before[sorted[i].place];
    }
}

}  // namespace tavrix
