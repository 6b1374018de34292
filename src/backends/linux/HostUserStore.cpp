#include "backends/linux/HostUserStore.h"

#include <array>
#include <limits>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostProfile.h"
#include "backends/shared/ProfileText.h"

namespace tavrix {
namespace {

constexpr const char* Section = "Settings";

}  // namespace

std::string HostUserStore::Get(const std::string& name, const std::string& fallback) {
    const std::optional<std::string> content = ReadWholeFile(file_, LargestProfile);
    if (!content) return fallback;
    const ProfileSection section = ReadProfileSection(*content, Section);
    return section.Has(name) ? section.Read(name, std::numeric_limits<std::size_t>::max()) : fallback;
}

void HostUserStore::Set(const std::string& name, const std::string& text) {
    MakeFolders(HostFolderOf(file_));
    TargetFile::Options options;
    options.newMode = 0600;
    MergeIntoProfile(file_, Section, std::array{ProfileEntry(name, text)}, options);
}

}  // namespace tavrix
