#pragma once

#include <functional>
#include <string>

namespace tavrix {

/// The top folder of the mounted file system that holds a folder (an absolute path without links).
[[nodiscard]] std::string MountFolderOf(const std::string& folder);

/// The trash of the desktops, after the freedesktop.org Trash specification 1.0. A file goes to the user's own trash
/// when that lies on the same file system, else to a trash at the top of the file's own one: .Trash/USER, where the
/// administrator has made .Trash properly, or .Trash-USER. Where neither can be used the file is copied to the user's
/// own trash.
class TrashCan {
  public:
    using MountFinder = std::function<std::string(const std::string& folder)>;

    /// `home` is the user's own trash; it is made when it is first needed.
    explicit TrashCan(std::string home, MountFinder mountFolderOf = MountFolderOf);

    enum class Place {
        Any,
        Home,  ///< the user's own in any case: for media that have no room to spare
    };

    /// Moves a file, by its host path; a symbolic link is moved itself. The file is in the trash when this returns,
    /// and at its place when it throws. Throws 53 when it is missing or a folder, 61 when the trash has no room for
    /// it, 70 when it may not be taken away or no trash may be used, 75 when no trash can take it.
    void Take(const std::string& file, Place place = Place::Any) const;

  private:
    std::string home_;
    MountFinder mountFolderOf_;
};

}  // namespace tavrix
