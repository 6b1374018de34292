#include "backends/linux/TemporaryFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "backends/linux/HostPaths.h"

namespace tavrix {
namespace {

/// Whether a path is a real folder of this user that nobody else can enter.
bool IsPrivate(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid() &&
           (status.st_mode & 0077U) == 0;
}

/// The folder below another one that is this user's by its name: made, or closed to others where it is there. Whether it
/// can be used.
bool TakeOwn(const std::string& path) {
    MakeFolders(path);
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != ::geteuid()) {
        return false;
    }
    return (status.st_mode & 0077U) == 0 || ::chmod(path.c_str(), 0700) == 0;
}

std::string OwnName() {
    return "/tavrix-" + std::to_string(::geteuid());
}

/// The folder that somebody has named, or a private one in it where others may enter it: its permissions are theirs who
/// made it.
std::string PlaceAt(const std::string& wanted) {
    struct stat status {};
    if (::lstat(wanted.c_str(), &status) != 0) MakeFolders(wanted);
    if (IsPrivate(wanted)) return wanted;
    if (::lstat(wanted.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return {};
    return TakeOwn(wanted + OwnName()) ? wanted + OwnName() : std::string();
}

std::string UsualPlace() {
    std::string place = EnvironmentValue("TMPDIR", "/tmp") + OwnName();
    if (place.starts_with('/') && TakeOwn(place)) return place;
    const std::string runtime = EnvironmentValue("XDG_RUNTIME_DIR");
    place = runtime + "/tavrix";
    return !runtime.empty() && TakeOwn(place) ? place : std::string();
}

/// The folder's own lock, which leaves no file behind; none when another process has it.
FileDescriptor LockOf(const std::string& folder) {
    FileDescriptor lock(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW));
    if (lock && ::flock(lock.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) lock.Close();
    return lock;
}

}  // namespace

TemporaryFolder::TemporaryFolder(const std::string& wanted) {
    const std::string base = wanted.empty() ? UsualPlace() : PlaceAt(wanted);
    if (base.empty()) return;
    constexpr int MostProcesses = 1000;
    for (int i = 1; i <= MostProcesses; ++i) {
        const std::string folder = i == 1 ? base : base + "/" + std::to_string(i);
        MakeFolders(folder);
        if (!IsPrivate(folder)) continue;
        lock_ = LockOf(folder);
        if (lock_) {
            path_ = folder;
            return;
        }
    }
}

}  // namespace tavrix
