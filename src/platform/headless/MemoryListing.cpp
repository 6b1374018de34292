#include <algorithm>

#include "platform/base/RuntimeError.h"
#include "platform/base/Text.h"
#include "platform/headless/MemoryFiles.h"

namespace tavrix::headless {

std::vector<std::string> MemoryFiles::List(const std::string& folder, const std::string& patterns) {
    faults_.Enter(Service::Files, "List", folder);
    const MemoryPlace place = Locate(folder);
    if (!place.IsFolder()) throw RuntimeError(ErrorNumber::PathNotFound);
    std::vector<std::string> names;
    for (const auto& [name, node] : place.node->children) {
        if (node->folder || node->hidden) continue;
        bool matches = false;
        for (std::size_t at = 0; at <= patterns.size();) {
            const std::size_t end = std::min(patterns.find(';', at), patterns.size());
            matches = matches || MatchesPattern(name, patterns.substr(at, end - at));
            at = end + 1;
        }
        if (matches) names.push_back(name);
    }
    std::ranges::sort(names, ListsBefore);
    return names;
}

std::vector<std::string> MemoryFiles::Folders(const std::string& folder) {
    faults_.Enter(Service::Files, "Folders", folder);
    const MemoryPlace place = Locate(folder);
    if (!place.IsFolder()) throw RuntimeError(ErrorNumber::PathNotFound);
    std::vector<std::string> names;
    for (const auto& [name, node] : place.node->children)
        if (node->folder && !node->hidden) names.push_back(name);
    std::ranges::sort(names, ListsBefore);
    for (std::string& name : names) name = WithBackslash(place.path) + name;
    return names;
}

}  // namespace tavrix::headless
