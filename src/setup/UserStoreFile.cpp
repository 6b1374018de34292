#include "setup/UserStoreFile.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <limits>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostProfile.h"
#include "backends/shared/ProfileText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix::setup {
namespace {

constexpr const char* Section = "Settings";

TargetFile::Options Private() {
    TargetFile::Options options;
    options.newMode = 0600;
    return options;
}

/// The text without the lines of a key; empty where nothing but the heading is left of it.
std::string Without(const std::string& text, const std::string& name) {
    std::string rest;
    bool inSection = false;
    bool holdsMore = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
        const std::string line = text.substr(at, end - at);
        at = end;
        const std::string bare = Trim(line.substr(0, line.find_first_of("\r\n")));
        const bool isHeading = EqualIgnoringCase(bare, "[" + std::string(Section) + "]");
        if (bare.starts_with('[')) inSection = isHeading;
        if (inSection && EqualIgnoringCase(Trim(line.substr(0, line.find('='))), name)) continue;
        rest += line;
        holdsMore = holdsMore || !(bare.empty() || isHeading);
    }
    return holdsMore ? rest : std::string();
}

}  // namespace

std::optional<std::string> ReadStored(const std::string& file, const std::string& name) {
    const std::optional<std::string> text = ReadIfThere(file);
    if (!text) return std::nullopt;
    const ProfileSection section = ReadProfileSection(*text, Section);
    if (!section.Has(name)) return std::nullopt;
    return section.Read(name, std::numeric_limits<std::size_t>::max());
}

void WriteStored(const std::string& file, const std::string& name, const std::optional<std::string>& value) {
    if (value) {
        MergeIntoProfile(file, Section, std::array{ProfileEntry(name, *value)}, Private());
        return;
    }
    const FolderLock lock(HostFolderOf(file));
    const std::optional<std::string> text = ReadIfThere(file);
    if (!text) return;
    const std::string rest = Without(*text, name);
    if (rest.empty()) {
        if (::unlink(file.c_str()) != 0) throw ErrorOf(errno);
        return;
    }
    TargetFile target(file, Private());
    target.Write(rest);
    target.Commit();
}

}  // namespace tavrix::setup
