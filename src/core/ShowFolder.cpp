#include "core/ShowFolder.h"

#include "base/Text.h"
#include "platform/services/DrivePath.h"

namespace tavrix {

ShowFolder::ShowFolder(const std::string& folder)
    : folder_(folder.empty() ? folder : WithBackslash(NormalPath(folder))),
      upper_(UpperCase(folder_)),
      length_(CharacterCount(folder_)) {}

ShowFolder ShowFolder::Of(const std::string& showFile) {
    return ShowFolder(FolderOf(showFile));
}

std::optional<std::string> ShowFolder::Relative(const std::string& path) const {
    // What ".." or a doubled separator would lead elsewhere has to be worked out before anything is cut off.
    const std::string normal = NormalPath(path);
    if (folder_.empty() || !UpperCase(normal).starts_with(upper_)) return std::nullopt;
    return From(normal, length_);
}

std::string ShowFolder::SlidePath(const std::string& stored) const {
    return NormalPath(stored.find(':') == std::string::npos ? folder_ + stored : stored);
}

}  // namespace tavrix
