#include "backends/linux/OwnCopy.h"

#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>

#include "backends/linux/HostFile.h"

namespace tavrix {
namespace {

bool HasRoom(const std::string& folder, off_t bytes) {
    struct statvfs disk {};
    return ::statvfs(folder.c_str(), &disk) == 0 &&
           std::uint64_t{disk.f_bavail} * disk.f_frsize >= static_cast<std::uint64_t>(bytes);
}

bool Link(const std::string& from, const std::string& to) {
    return ::linkat(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), 0) == 0;
}

}  // namespace

bool LinkAsCopy(const std::string& from, const struct stat& status, const std::string& to) {
    if ((status.st_mode & S_IWUSR) == 0 || !HasRoom(HostFolderOf(to), status.st_size)) return false;
    if (Link(from, to)) return true;
    if (errno != EEXIST) return false;
    const std::string name = NameBeside(to);
    if (!Link(from, name)) return false;
    if (::rename(name.c_str(), to.c_str()) == 0) return true;
    ::unlink(name.c_str());
    return false;
}

}  // namespace tavrix
