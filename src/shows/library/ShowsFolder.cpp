#include "shows/library/ShowsFolder.h"

namespace tavrix {

std::string ShowsFolder(const MainModule& module) {
    std::string folder = module.AppPath + "SLIDES\\";
    return module.platform.files.FolderExists(folder) ? folder : module.AppPath;
}

}  // namespace tavrix
