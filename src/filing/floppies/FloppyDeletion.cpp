#include "filing/floppies/FloppyDeletion.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FileServices.h"
#include "core/RecentLists.h"
#include "filing/CurrentImageFolder.h"

namespace tavrix {

void FloppyDeletion::Delete(const std::string& name) {
    const std::vector<std::string> thumbnails = ThumbnailsOf(name);
    Remove(name);
    RemoveRecentFile(module_, disk_.PathOf(name));
    for (const std::string& thumbnail : thumbnails) {
        if (IsImageOnShow(module_, disk_.PathOf(thumbnail))) continue;
        Remove(thumbnail);
        taken_.insert(thumbnail);
    }
}

void FloppyDeletion::Remove(const std::string& name) {
    const std::string path = disk_.PathOf(name);
    RequireExactly(module_, path);
    module_.platform.files.ClearAttributes(path);
    module_.platform.files.Delete(path);
}

std::vector<std::string> FloppyDeletion::ThumbnailsOf(const std::string& name) const {
    if (!module_.config.ThumbnailDelete) return {};
    constexpr std::size_t ExtensionLength = 3;
    const std::string stem =
        Left(name, CharacterCount(name) - std::min(CharacterCount(name), ExtensionLength));
    const std::string& extension = module_.config.ThumbnailExtension;
    std::vector<std::string> names = module_.platform.files.List(disk_.Root(), "*");
    const bool lookAlike = std::ranges::any_of(
        names, [&](const std::string& other) { return other != name && EqualIgnoringCase(other, name); });
    std::erase_if(names, [&](const std::string& other) {
        if (other == name) return true;
        const std::string begin = Left(other, CharacterCount(stem));
        // With a look-alike of the file beside it, a thumbnail of another spelling is perhaps the other one's.
        if (lookAlike ? begin != stem : !EqualIgnoringCase(begin, stem)) return true;
        return extension != "?" && !EqualIgnoringCase(From(other, CharacterCount(stem)), extension);
    });
    return names;
}

}  // namespace tavrix
