#include "shows/package/PackageLayout.h"

#include "core/Folders.h"

namespace tavrix::package {

std::vector<ProgramFile> InstalledFiles::List() {
    const std::string system = GetSystemFolder(module_);
    std::vector<ProgramFile> files;
    for (const LayoutEntry& entry : Layout) {
        const std::string_view source = entry.sourceName.empty() ? entry.name : entry.sourceName;
        files.push_back(
            {std::string(entry.name), std::string(entry.ofSystem ? system : module_.AppPath).append(source)});
    }
    return files;
}

}  // namespace tavrix::package
