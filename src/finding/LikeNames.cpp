#include "finding/LikeNames.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {

bool LikeNames::Add(const std::string& folder, const std::string& name) {
    const std::string path = folder + name;
    const auto [entry, isNew] = names_.try_emplace(UpperCase(name), Name{.first = path});
    if (isNew) return false;
    Name& met = entry->second;
    if (met.group != Alone) {
        if (!Join(groups_[met.group], path)) return false;
        ++count_;
        return true;
    }
    Group pair;
    Join(pair, met.first);
    if (!Join(pair, path)) return false;
    met.group = groups_.size();
    groups_.push_back(std::move(pair));
    count_ += 2;
    return true;
}

void LikeNames::Clear() {
    names_.clear();
    groups_.clear();
    count_ = 0;
}

bool LikeNames::Join(Group& group, const std::string& path) {
    const Looks looks = LooksOf(path);
    const auto [begin, end] = group.byLooks.equal_range(looks);
    const bool there = std::any_of(
        begin, end, [&](const auto& other) { return files_.SameEntry(group.paths[other.second], path); });
    if (there) return false;
    group.byLooks.emplace(looks, group.paths.size());
    group.paths.push_back(path);
    return true;
}

LikeNames::Looks LikeNames::LooksOf(const std::string& path) {
    FileInfo info;
    SkipFailure([&] { info = files_.Info(path); });
    const DateTime& date = info.modified;
    return {info.length, date.year, date.month, date.day, date.hour, date.minute, date.second};
}

std::vector<std::string> LikeNames::Paths() const {
    std::vector<std::string> paths;
    paths.reserve(static_cast<std::size_t>(count_));
    for (const Group& group : groups_)
        std::copy(group.paths.rbegin(), group.paths.rend(), std::back_inserter(paths));
    return paths;
}

}  // namespace tavrix
