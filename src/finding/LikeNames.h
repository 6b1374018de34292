#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "platform/services/Files.h"

namespace tavrix {

/// Files of like names: those whose names, without the folder, are equal apart from case.
///
/// A file that is met by two ways (a link, a folder that stands on two drives) counts once. Only files of one name are
/// looked at for that, by their size and date first.
class LikeNames {
  public:
    explicit LikeNames(Files& files) : files_(files) {}

    void Clear();
    /// Notes a file; the folder has a backslash at the end. Whether there is one more of like names.
    bool Add(const std::string& folder, const std::string& name);
    /// How many files have the name of another one.
    [[nodiscard]] int Count() const { return count_; }
    /// These, those of one name together: the last one met first. The names follow in the order in which they turned out to
    /// be there twice.
    [[nodiscard]] std::vector<std::string> Paths() const;

  private:
    /// What two paths of one file have in common, and most files do not.
    using Looks = std::tuple<std::int64_t, int, int, int, int, int, int>;

    /// The files of one name, in the order in which they were met.
    struct Group {
        std::vector<std::string> paths{};
        std::multimap<Looks, std::size_t> byLooks{};
    };
    static constexpr std::size_t Alone = static_cast<std::size_t>(-1);
    struct Name {
        std::string first{};
        std::size_t group = Alone;  ///< of groups_
    };

    [[nodiscard]] Looks LooksOf(const std::string& path);
    /// False for a file that is there by another path.
    bool Join(Group& group, const std::string& path);

    Files& files_;
    std::unordered_map<std::string, Name> names_;  ///< in upper case
    std::vector<Group> groups_;
    int count_ = 0;
};

}  // namespace tavrix
