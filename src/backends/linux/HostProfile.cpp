#include "backends/linux/HostProfile.h"

#include <cerrno>
#include <optional>

#include "backends/shared/ProfileText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

/// Whether something stands at a path; when that cannot be told, something does.
bool IsThere(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

}  // namespace

std::optional<std::string> ReadIfThere(const std::string& hostPath, std::size_t largest) {
    std::optional<std::string> text = ReadWholeFile(hostPath, largest);
    if (!text && IsThere(hostPath)) throw RuntimeError(ErrorNumber::PathFileAccessError);
    return text;
}

bool MergeIntoProfile(const std::string& hostPath, const std::string& section,
                      std::span<const ProfileEntry> entries, TargetFile::Options options,
                      const std::string& initial, std::chrono::milliseconds patience) {
    const std::string path = FollowLinks(hostPath);
    const FolderLock lock(HostFolderOf(path), patience);
    TargetFile target(path, options);
    const std::optional<std::string> content = ReadIfThere(path, LargestProfile);
    const std::string after = MergeProfileText(content.value_or(initial), section, entries);
    if (after == content) return lock.Had();
    target.Write(after);
    target.Commit();
    return lock.Had();
}

ProfileSection HostProfile::Read(const std::string& section, const std::string& file) {
    try {
        const std::string path = drives_.Locate(file).path;
        const std::optional<std::string> content = ReadWholeFile(path, LargestProfile);
        if (content) return ReadProfileSection(*content, section);
        if (IsThere(path)) unread_.insert(UpperCase(file));
        return {};
    } catch (const RuntimeError&) {
        return {};
    }
}

void HostProfile::Write(const std::string& section, std::span<const ProfileEntry> entries,
                        const std::string& file) {
    const HostLocation location = drives_.LocateForWriting(file);
    if (!location.exists && !location.parentExists) throw RuntimeError(ErrorNumber::PathNotFound);
    if (location.exists && unread_.contains(UpperCase(file))) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    // Where the user has no file yet, the shared one is what was read so far.
    const std::string shared = location.exists ? std::string() : drives_.SharedPathOf(location.path);
    const std::string initial =
        shared.empty() ? std::string() : ReadWholeFile(shared).value_or(std::string());
    TargetFile::Options options;
    options.inPlace = location.drive.letter == 'A' || location.drive.letter == 'B';
    const bool had = MergeIntoProfile(location.path, section, entries, options, initial, patience_);
    patience_ = had ? FolderLock::Patience : std::chrono::milliseconds(0);
}

}  // namespace tavrix
