#include "backends/linux/LicenceTexts.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <unordered_set>

#include "backends/linux/HostFile.h"

namespace tavrix {
namespace {

namespace fs = std::filesystem;

bool HoldsOne(std::string_view list, const std::unordered_set<std::string_view>& wanted) {
    while (!list.empty()) {
        const std::size_t end = std::min(list.find('\n'), list.size());
        if (wanted.contains(list.substr(0, end))) return true;
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

}  // namespace

std::map<std::string, std::string> LicenceTextsOf(std::span<const std::string> paths,
                                                  const LicencePlaces& places) {
    constexpr std::string_view Merged = "/usr";  // what is there may be listed by its former place
    std::unordered_set<std::string_view> wanted;
    for (const std::string& path : paths) {
        wanted.insert(path);
        if (path.starts_with("/usr/lib")) wanted.insert(std::string_view(path).substr(Merged.size()));
    }
    std::map<std::string, std::string> texts;
    std::error_code error;
    for (fs::directory_iterator at(places.lists, error), end; !error && at != end; at.increment(error)) {
        if (at->path().extension() != ".list") continue;
        const std::string package = at->path().stem().string();
        const std::string name = package.substr(0, package.find(':'));
        const fs::path text = fs::path(places.texts) / name / "copyright";
        const std::optional<std::string> list = ReadWholeFile(at->path().string());
        std::error_code none;
        if (!list || !HoldsOne(*list, wanted)) continue;
        const fs::path source = fs::canonical(text, none);
        if (!none) texts.emplace(name, source.string());
    }
    return texts;
}

}  // namespace tavrix
