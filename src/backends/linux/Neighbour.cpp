#include "backends/linux/Neighbour.h"

#include <unistd.h>

#include "backends/linux/HostFile.h"

namespace tavrix {

std::string NeighbourOf(const std::string& executable, const std::string& name) {
    const std::string beside = HostFolderOf(executable);
    for (const std::string& folder : {beside, HostFolderOf(HostFolderOf(beside)) + "/bin"}) {
        std::string path = folder;
        path.append("/").append(name);
        if (::access(path.c_str(), X_OK) == 0) return path;
    }
    return {};
}

}  // namespace tavrix
