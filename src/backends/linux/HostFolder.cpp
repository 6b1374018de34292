#include "backends/linux/HostFolder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <utility>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostNames.h"
#include "base/RuntimeError.h"

namespace tavrix {
namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

RuntimeError FolderError(int systemError) {
    return systemError == ENOENT ? RuntimeError(ErrorNumber::PathNotFound) : ErrorOf(systemError);
}

/// Whether an entry can be of a kind; what is neither file nor folder by itself may be a link to one.
bool MayBe(EntryKind kind, const dirent& entry) {
    const unsigned char type = entry.d_type;
    return type == DT_LNK || type == DT_UNKNOWN || type == (kind == EntryKind::File ? DT_REG : DT_DIR);
}

bool Is(EntryKind kind, DIR* folder, const dirent& entry) {
    if (entry.d_type == DT_REG || entry.d_type == DT_DIR) return MayBe(kind, entry);
    struct stat status {};
    if (::fstatat(::dirfd(folder), entry.d_name, &status, 0) != 0) return false;
    return kind == EntryKind::File ? S_ISREG(status.st_mode) : S_ISDIR(status.st_mode);
}

bool IsRealFolder(DIR* folder, const dirent& entry) {
    struct stat status {};
    return ::fstatat(::dirfd(folder), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISDIR(status.st_mode);
}

}  // namespace

void ReadFolder(const std::string& path, EntryKind kind,
                const std::function<bool(const std::string&)>& wanted,
                const std::function<void(std::string&&)>& take) {
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(path.c_str()));
    if (!folder) throw FolderError(errno);
    for (;;) {
        errno = 0;
        const dirent* const entry = ::readdir(folder.get());
        if (entry == nullptr && errno != 0) throw FolderError(errno);
        if (entry == nullptr) return;
        if (entry->d_name[0] == '.' || !MayBe(kind, *entry)) continue;
        std::string name = ToDriveName(entry->d_name);
        if (wanted(name) && Is(kind, folder.get(), *entry)) take(std::move(name));
    }
}

void ReadBoth(const std::string& path, const std::function<bool(const std::string&)>& wantedFile,
              const std::function<void(std::string&&, EntryKind)>& take) {
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(path.c_str()));
    if (!folder) throw FolderError(errno);
    for (;;) {
        errno = 0;
        const dirent* const entry = ::readdir(folder.get());
        if (entry == nullptr && errno != 0) throw FolderError(errno);
        if (entry == nullptr) return;
        if (entry->d_name[0] == '.') continue;
        std::string name = ToDriveName(entry->d_name);
        if (entry->d_type == DT_DIR || (entry->d_type == DT_UNKNOWN && IsRealFolder(folder.get(), *entry))) {
            take(std::move(name), EntryKind::Folder);
        } else if (MayBe(EntryKind::File, *entry) && wantedFile(name) &&
                   Is(EntryKind::File, folder.get(), *entry)) {
            take(std::move(name), EntryKind::File);
        }
    }
}

}  // namespace tavrix
