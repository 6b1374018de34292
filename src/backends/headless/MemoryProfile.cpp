#include "backends/headless/MemoryProfile.h"

#include <optional>

#include "backends/headless/MemoryFiles.h"
#include "backends/shared/ProfileText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/services/DrivePath.h"

namespace tavrix::headless {

ProfileSection MemoryProfile::Read(const std::string& section, const std::string& file) {
    const bool readable = faults_.EnterQuietly(Service::Profile, "Read", file + " " + section);
    const std::optional<std::string> content = disks_.Content(file);
    if (!readable && content) unread_.insert(UpperCase(file));
    if (!readable) return {};
    return content ? ReadProfileSection(*content, section) : ProfileSection();
}

void MemoryProfile::Write(const std::string& section, std::span<const ProfileEntry> entries,
                          const std::string& file) {
    faults_.Enter(Service::Profile, "Write", file + " " + section);
    const MemoryPlace place = disks_.LocateForWriting(PartsOf(file));
    if (place.IsFile() && unread_.contains(UpperCase(file))) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    const std::string before = place.IsFile() ? place.node->content : std::string();
    ReplaceContent(place, MergeProfileText(before, section, entries), disks_.Now());
    for (const auto& [key, value] : entries)
        journal_.push_back({file, section, key, value});
}

}  // namespace tavrix::headless
