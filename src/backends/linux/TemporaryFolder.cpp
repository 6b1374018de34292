#include "backends/linux/TemporaryFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "backends/linux/HostPaths.h"

namespace tavrix {
namespace {

/// Makes the folder or takes the one that is there, if it is a real folder of this user that nobody else can enter.
bool IsPrivate(const std::string& path) {
    MakeFolders(path);
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != ::geteuid()) {
        return false;
    }
    return (status.st_mode & 0077U) == 0 || ::chmod(path.c_str(), 0700) == 0;
}

FileDescriptor LockOf(const std::string& folder) {
    FileDescriptor lock(::open((folder + "/.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (lock && ::flock(lock.Number(), LOCK_EX | LOCK_NB) != 0) lock.Close();
    return lock;
}

std::string UsualPlace() {
    const std::string name = "/tavrix-" + std::to_string(::geteuid());
    std::string place = EnvironmentValue("TMPDIR", "/tmp") + name;
    if (place.starts_with('/') && IsPrivate(place)) return place;
    const std::string runtime = EnvironmentValue("XDG_RUNTIME_DIR");
    place = runtime + "/tavrix";
    return !runtime.empty() && IsPrivate(place) ? place : std::string();
}

}  // namespace

TemporaryFolder::TemporaryFolder(const std::string& wanted) {
    const std::string base = wanted.empty() ? UsualPlace() : wanted;
    if (base.empty() || !IsPrivate(base)) return;
    constexpr int MostProcesses = 1000;
    for (int i = 1; i <= MostProcesses; ++i) {
        const std::string folder = i == 1 ? base : base + "/" + std::to_string(i);
        if (!IsPrivate(folder)) continue;
        lock_ = LockOf(folder);
        if (lock_) {
            path_ = folder;
            return;
        }
    }
}

}  // namespace tavrix
