#pragma once

#include <string>
#include <vector>

namespace tavrix {

/// The images that the thumbnail browser shows. Its two dialogs make such a list, and so does a drop on the browser.
struct ThumbnailList {
    static constexpr int Most = 5000;
    /// What the dialog for single files leaves in ThumbnailFolder: there is a list, and it is not that of a folder.
    static constexpr const char* Selected = "Selected";

    std::vector<std::string> ThumbnailFiles;  ///< full paths
    /// The folder whose images these are, with a backslash at the end and its first letter in upper case; empty for
    /// single files, and when a dialog ended without a list.
    std::string ThumbnailFolder;
    bool ThumbnailsShown = false;  ///< the browser has shown this list

    [[nodiscard]] int ThumbnailCount() const { return static_cast<int>(ThumbnailFiles.size()); }
};

}  // namespace tavrix
