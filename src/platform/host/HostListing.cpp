#include <filesystem>

#include "platform/host/HostFiles.h"

namespace tavrix {

std::vector<std::string> HostFiles::List(const std::string& folder, const std::string&) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Locate(folder).path)) names.push_back(entry.path().filename().string());
    return names;
}

std::vector<std::string> HostFiles::Folders(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Locate(folder).path)) if (entry.is_directory()) names.push_back(drives_.ToDrivePath(entry.path().string()));
    return names;
}

}  // namespace tavrix
