#include "backends/linux/UserFolders.h"

#include <sstream>
#include <string_view>

#include "backends/linux/HostFile.h"

namespace tavrix {
namespace {

/// A path below the home folder, where that may be the root.
std::string Below(const std::string& homeFolder, std::string_view rest) {
    std::string path = homeFolder;
    while (path.ends_with('/'))
        path.pop_back();
    return path.append(rest);
}

/// The value of a line KEY="value" in the notation of a shell, with the backslashes before special characters gone;
/// empty for another line.
std::string ValueOf(const std::string& line, std::string_view key) {
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string::npos || line.compare(start, key.size(), key) != 0) return {};
    std::size_t at = start + key.size();
    if (line.compare(at, 2, "=\"") != 0) return {};
    std::string value;
    for (at += 2; at < line.size() && line[at] != '"'; ++at) {
        if (line[at] == '\\' && at + 1 < line.size()) ++at;
        value.push_back(line[at]);
    }
    return value;
}

}  // namespace

std::string DocumentsFolder(const std::string& configFolder, const std::string& homeFolder) {
    constexpr std::string_view home = "$HOME";
    std::string folder = Below(homeFolder, "/Documents");
    std::istringstream lines(ReadWholeFile(configFolder + "/user-dirs.dirs").value_or(""));
    for (std::string line; std::getline(lines, line);) {
        const std::string value = ValueOf(line, "XDG_DOCUMENTS_DIR");
        if (value.starts_with('/')) {
            folder = value;
        } else if (value == home || value.starts_with("$HOME/")) {
            folder = Below(homeFolder, std::string_view(value).substr(home.size()));
            if (folder.empty()) folder = "/";
        }
    }
    return folder;
}

}  // namespace tavrix
