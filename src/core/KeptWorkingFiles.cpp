#include "core/KeptWorkingFiles.h"

#include <algorithm>
#include <sstream>
#include <vector>

namespace tavrix {
namespace {

std::vector<std::string> PathsOf(const MainModule& module) {
    std::vector<std::string> paths;
    std::istringstream lines(module.KeptWorkingFile);
    for (std::string path; std::getline(lines, path);)
        paths.push_back(path);
    return paths;
}

}  // namespace

void KeepWorkingFile(MainModule& module, const std::string& path) {
    if (IsKeptWorkingFile(module, path)) return;
    if (!module.KeptWorkingFile.empty()) module.KeptWorkingFile += '\n';
    module.KeptWorkingFile += path;
}

bool IsKeptWorkingFile(const MainModule& module, const std::string& path) {
    const std::vector<std::string> paths = PathsOf(module);
    return std::ranges::find(paths, path) != paths.end();
}

void ForgetWorkingFile(MainModule& module, const std::string& path) {
    std::vector<std::string> paths = PathsOf(module);
    std::erase(paths, path);
    module.KeptWorkingFile.clear();
    for (const std::string& kept : paths)
        KeepWorkingFile(module, kept);
}

}  // namespace tavrix
