#include "backends/linux/Neighbour.h"

#include <unistd.h>

#include <filesystem>

#include "backends/linux/HostFile.h"

namespace tavrix {

std::string NeighbourOf(const std::string& executable, const std::string& name) {
    const std::string beside = HostFolderOf(executable);
    const auto program = std::filesystem::path(beside + "/" TAVRIX_PROGRAM_FOLDER).lexically_normal();
    for (const std::string& folder : {beside, program.string()}) {
        std::string path = folder;
        path.append("/").append(name);
        if (::access(path.c_str(), X_OK) == 0) return path;
    }
    return {};
}

}  // namespace tavrix
