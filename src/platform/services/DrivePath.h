#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tavrix {

/// A full drive path (C:\Pictures\a.bmp) taken apart; "." and ".." are worked out.
struct DrivePathParts {
    char letter = 'C';               ///< in upper case
    std::vector<std::string> names;  ///< empty for the root

    [[nodiscard]] std::string Text() const;
};

/// Takes a full path apart; slashes count as backslashes. Throws 52 for a path without drive and root, and for names
/// with a colon, a quotation mark, a wildcard or a control character.
[[nodiscard]] DrivePathParts PartsOf(std::string_view path);

[[nodiscard]] bool IsDriveLetter(char c);

/// The usual form of a path, in which paths are kept, shown and compared: backslashes alone and, where it is a full one,
/// "." and ".." worked out. The letter of the drive stays as it is, and so does a path that is malformed otherwise.
[[nodiscard]] std::string NormalPath(std::string_view path);

/// Whether `a` stands before `b` in lists: sorted without regard to case, then by the exact spelling.
[[nodiscard]] bool ListsBefore(const std::string& a, const std::string& b);

/// Whether a file name matches a pattern of * and ?, whatever the case. "*.*" matches names without a point too, and
/// so does "x.*" the name "x".
[[nodiscard]] bool MatchesPattern(std::string_view name, std::string_view pattern);

/// A path whose last component is a pattern.
struct PatternPath {
    std::string folder;  ///< as written; empty for the current one
    std::string pattern;
};
[[nodiscard]] PatternPath SplitPattern(std::string_view path);

/// The current drive, and the current folder of each drive.
class CurrentFolders {
  public:
    [[nodiscard]] char Drive() const { return drive_; }
    void SetDrive(char letter) { drive_ = letter; }
    /// Makes a full path the current folder of its drive.
    void SetFolder(const DrivePathParts& folder) { folders_[folder.letter] = folder; }
    /// The current folder of the current drive; a backslash at the end only for a root.
    [[nodiscard]] std::string Folder() const { return FolderOn(drive_).Text(); }

    /// The full form of a path that may lack its drive or its folder ("a.bmp", "\a.bmp", "C:a.bmp", "C:").
    /// Throws 52 for an empty or malformed path.
    [[nodiscard]] DrivePathParts Absolute(std::string_view path) const;

  private:
    [[nodiscard]] DrivePathParts FolderOn(char letter) const;

    char drive_ = 'C';
    std::map<char, DrivePathParts> folders_;
};

}  // namespace tavrix
