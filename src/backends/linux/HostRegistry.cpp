#include "backends/linux/HostRegistry.h"

#include <array>
#include <limits>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostProfile.h"
#include "backends/shared/ProfileText.h"

namespace tavrix {

std::optional<RegistryValue> HostRegistry::Read(const std::string& key, const std::string& name) {
    const std::optional<std::string> content = ReadWholeFile(file_, LargestProfile);
    if (!content) return std::nullopt;
    const ProfileSection section = ReadProfileSection(*content, key);
    if (!section.Has(name)) return std::nullopt;
    constexpr int TextType = 1;
    return RegistryValue{TextType, section.Read(name, std::numeric_limits<std::size_t>::max())};
}

void HostRegistry::Write(const std::string& key, const std::string& name, const std::string& text) {
    MakeFolders(HostFolderOf(file_));
    TargetFile::Options options;
    options.newMode = 0600;
    MergeIntoProfile(file_, key, std::array{ProfileEntry(name, text)}, options);
}

}  // namespace tavrix
