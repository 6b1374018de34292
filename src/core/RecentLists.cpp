#include "core/RecentLists.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

template <class List>
auto Find(List& list, const std::string& path) {
    return std::ranges::find_if(list,
                                [&path](const std::string& entry) { return EqualIgnoringCase(entry, path); });
}

/// Takes the path from the list, the entries below it moving up; whether it was there.
template <class List>
bool Remove(List& list, const std::string& path) {
    const auto found = Find(list, path);
    if (found == list.end()) return false;
    std::move(found + 1, list.end(), found);
    list.back().clear();
    return true;
}

/// Puts the path, with its first letter raised, first in the list; the last entry drops out.
template <class List>
void PutFirst(List& list, std::string& path) {
    path = WithUpperFirst(path);
    std::move_backward(list.begin(), list.end() - 1, list.end());
    list.front() = path;
}

bool MayRemove(const MainModule& module, const std::string& path) {
    return !path.empty() && module.config.KeepRecent;
}

/// Whether the file of an entry is there. One that is left beside it, of a name that differs in case alone, is another
/// file; it is the entry's where that one is spelled otherwise than the path.
bool Exists(const MainModule& module, const std::string& path, const std::string& entry) {
    Files& files = module.platform.files;
    if (!files.FileExists(path)) return false;
    return entry != WithUpperFirst(path) || files.HasExactly(path);
}

}  // namespace

void TellDesktop(const MainModule& module, const std::string& path) {
    if (!module.config.UseRecentDocuments) return;
    SkipFailure([&] { module.platform.shell.AddRecent(path); });
    module.DoEvents();
}

void AddRecentFile(MainModule& module, std::string& path) {
    TellDesktop(module, path);
    if (path.empty() || !module.config.KeepRecent) return;
    auto& recent = module.config.Recent;
    if (Find(recent, path) != recent.end()) return;
    PutFirst(recent, path);
    module.RefreshRecentMenu();
}

void AddRecentShow(MainModule& module, std::string& path) {
    TellDesktop(module, path);
    ListRecentShow(module, path);
}

void ListRecentShow(MainModule& module, std::string& path) {
    constexpr std::size_t longestNonFile = 7;
    if (CharacterCount(path) <= longestNonFile || path.find(':') == std::string::npos) return;
    if (!module.config.KeepRecent) return;
    auto& shows = module.config.RecentShows;
    if (Find(shows, path) == shows.end()) PutFirst(shows, path);
}

void RemoveRecentFile(MainModule& module, const std::string& path) {
    if (!MayRemove(module, path)) return;
    module.DoEvents();
    auto& recent = module.config.Recent;
    const auto entry = Find(recent, path);
    if (entry == recent.end() || Exists(module, path, *entry)) return;
    Remove(recent, path);
    module.RefreshRecentMenu();
}

void RemoveRecentShow(MainModule& module, const std::string& path) {
    if (MayRemove(module, path)) Remove(module.config.RecentShows, path);
}

}  // namespace tavrix
