#include "finding/LikeNames.h"

#include <utility>

#include "base/Text.h"

namespace tavrix {

std::size_t LikeNames::KinHash::operator()(const Kin& kin) const {
    constexpr std::uint64_t Spread = 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>((kin.number + Spread * kin.group) * Spread);
}

bool LikeNames::Add(const std::string& folder, const std::string& name, FileNumber number) {
    File file{.folder = NoteFolder(folder), .name = name, .number = number};
    const auto [entry, isNew] = names_.try_emplace(UpperCase(name));
    Name& met = entry->second;
    if (isNew) {
        met.first = std::move(file);
        return false;
    }
    if (met.group != Alone) {
        if (!Join(met.group, std::move(file))) return false;
        ++count_;
        return true;
    }
    if (met.first.number == number && files_.SameEntry(PathOf(met.first), PathOf(file))) return false;
    met.group = groups_.size();
    groups_.emplace_back();
    Join(met.group, std::move(met.first));
    Join(met.group, std::move(file));
    count_ += 2;
    return true;
}

void LikeNames::Clear() {
    folders_.clear();
    names_.clear();
    groups_.clear();
    kin_.clear();
    count_ = 0;
}

std::size_t LikeNames::NoteFolder(const std::string& folder) {
    // They come folder by folder.
    if (folders_.empty() || folders_.back() != folder) folders_.push_back(folder);
    return folders_.size() - 1;
}

bool LikeNames::Join(std::size_t group, File file) {
    if (IsThere({group, file.number}, file)) return false;
    groups_[group].push_back(std::move(file));
    return true;
}

bool LikeNames::IsThere(const Kin& kin, const File& file) {
    const auto [begin, end] = kin_.equal_range(kin);
    for (auto other = begin; other != end; ++other) {
        const std::string one = PathOf(groups_[kin.group][other->second]);
        const std::string path = PathOf(file);
        if (files_.SameEntry(one, path)) return true;
        // A second name for one content. What is the same as one of them is the same as the first.
        if (files_.Same(one, path)) return false;
    }
    kin_.emplace(kin, groups_[kin.group].size());
    return false;
}

std::vector<std::string> LikeNames::Paths() const {
    std::vector<std::string> paths;
    paths.reserve(static_cast<std::size_t>(count_));
    for (const auto& group : groups_) {
        for (auto file = group.rbegin(); file != group.rend(); ++file)
            paths.push_back(PathOf(*file));
    }
    return paths;
}

}  // namespace tavrix
