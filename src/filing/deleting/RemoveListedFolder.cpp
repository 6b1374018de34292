#include "filing/deleting/RemoveListedFolder.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {

void RemoveListedFolder(const MainModule& module, const std::string& folder) {
    Files& files = module.platform.files;
    if (files.ShortPath(folder) != WithBackslash(folder)) throw RuntimeError(ErrorNumber::PathNotFound);
    files.RemoveFolder(folder);
}

}  // namespace tavrix
