#include "core/KeptWorkingFiles.h"

#include <algorithm>

#include "core/PutAside.h"

namespace tavrix {

void KeepWorkingFile(MainModule& module, const std::string& path) {
    if (!IsKeptWorkingFile(module, path)) module.KeptWorkingFiles.push_back(path);
}

bool IsKeptWorkingFile(const MainModule& module, const std::string& path) {
    return std::ranges::find(module.KeptWorkingFiles, path) != module.KeptWorkingFiles.end();
}

void ForgetWorkingFile(MainModule& module, const std::string& path) {
    std::erase(module.KeptWorkingFiles, path);
}

void GiveWayToEdit(MainModule& module, const std::string& path) {
    if (!IsKeptWorkingFile(module, path)) return;
    if (IsThere(module.platform.files, path)) PutAside(module, path);
    ForgetWorkingFile(module, path);
}

}  // namespace tavrix
