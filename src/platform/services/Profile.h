#pragma once

#include <map>
#include <span>
#include <string>
#include <utility>

namespace tavrix {

/// The keys of one section of a profile, as read at one moment.
class ProfileSection {
  public:
    /// Key and value; where a key stands twice, the first counts. Keys are found without regard to case.
    void Add(const std::string& key, const std::string& value);

    /// The value, cut to `bufferSize` - 1 characters; empty when it is missing. Values come without the blanks and
    /// one pair of quotation marks around them.
    [[nodiscard]] std::string Read(const std::string& key, std::size_t bufferSize = 128) const;

    /// Whether the key stands there, if only with an empty value.
    [[nodiscard]] bool Has(const std::string& key) const;

  private:
    std::map<std::string, std::string> values_;  ///< by upper-cased key
};

using ProfileEntry = std::pair<std::string, std::string>;

/// Files of key=value lines under [section] headings.
class Profile {
  public:
    virtual ~Profile() = default;

    /// A section as it stands on disk. A missing file or section is empty and no error, and so is a file that cannot be
    /// read.
    [[nodiscard]] virtual ProfileSection Read(const std::string& section, const std::string& file) = 0;
    /// Sets keys, making file and section as needed. The file is locked, read again, merged and replaced as a whole:
    /// all other lines, comments and sections stay as they are, and a kill leaves the old file or the new one.
    /// A file that was there and could not be read once is not written any more (70): what the process holds is not
    /// what the user has set.
    virtual void Write(const std::string& section, std::span<const ProfileEntry> entries,
                       const std::string& file) = 0;
};

}  // namespace tavrix
