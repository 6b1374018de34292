#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/services/Files.h"

namespace tavrix {

/// Files of like names: those whose names, without the folder, are equal apart from case.
///
/// A file that is met by two ways (a link, a folder that stands on two drives) counts once. Only files of one name are
/// looked at for that, and of them only those that their disks know by the same number.
class LikeNames {
  public:
    explicit LikeNames(Files& files) : files_(files) {}

    void Clear();
    /// Notes a file; the folder has a backslash at the end. Whether there is one more of like names.
    bool Add(const std::string& folder, const std::string& name, FileNumber number = UnknownFileNumber);
    /// How many files have the name of another one.
    [[nodiscard]] int Count() const { return count_; }
    /// These, those of one name together: the last one met first. The names follow in the order in which they turned out to
    /// be there twice.
    [[nodiscard]] std::vector<std::string> Paths() const;

  private:
    struct File {
        std::size_t folder = 0;  ///< of folders_
        std::string name{};
        FileNumber number = UnknownFileNumber;
    };
    static constexpr std::size_t Alone = static_cast<std::size_t>(-1);
    struct Name {
        File first{};               ///< as long as it is alone
        std::size_t group = Alone;  ///< of groups_
    };
    /// Of one name and one number.
    struct Kin {
        std::size_t group = 0;
        FileNumber number = UnknownFileNumber;

        friend bool operator==(const Kin&, const Kin&) = default;
    };
    struct KinHash {
        std::size_t operator()(const Kin& kin) const;
    };

    [[nodiscard]] std::size_t NoteFolder(const std::string& folder);
    [[nodiscard]] std::string PathOf(const File& file) const { return folders_[file.folder] + file.name; }
    /// Adds a file to those of its name, unless it is there by another path. Whether it was added.
    bool Join(std::size_t group, File file);
    /// Whether it is one of those that are there, by another path.
    [[nodiscard]] bool IsThere(const Kin& kin, const File& file);

    Files& files_;
    std::vector<std::string> folders_;
    std::unordered_map<std::string, Name> names_;  ///< in upper case
    std::vector<std::vector<File>> groups_;        ///< of one name each, in the order in which they were met
    /// The places in their groups of those that a later one may be; of several names for one content the first.
    std::unordered_multimap<Kin, std::size_t, KinHash> kin_;
    int count_ = 0;
};

}  // namespace tavrix
