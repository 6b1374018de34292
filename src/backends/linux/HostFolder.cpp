#include "backends/linux/HostFolder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <optional>
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

/// What an entry is, after a look at the disk where the folder does not tell. Nothing for what is no kind of its own.
struct Entry {
    std::optional<EntryKind> kind;
    FileNumber number = UnknownFileNumber;
};

Entry EntryOf(DIR* folder, const dirent& entry) {
    if (entry.d_type == DT_REG) return {EntryKind::File, entry.d_ino};
    if (entry.d_type == DT_DIR) return {EntryKind::Folder};
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return {};
    struct stat status {};
    if (::fstatat(::dirfd(folder), entry.d_name, &status, 0) != 0) return {};
    if (S_ISREG(status.st_mode)) return {EntryKind::File, status.st_ino};
    if (!S_ISDIR(status.st_mode)) return {};
    struct stat itself {};
    const bool link = ::fstatat(::dirfd(folder), entry.d_name, &itself, AT_SYMLINK_NOFOLLOW) != 0 ||
                      S_ISLNK(itself.st_mode);
    return {link ? EntryKind::LinkedFolder : EntryKind::Folder};
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
              const std::function<void(std::string&&, EntryKind, FileNumber)>& take) {
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(path.c_str()));
    if (!folder) throw FolderError(errno);
    for (;;) {
        errno = 0;
        const dirent* const entry = ::readdir(folder.get());
        if (entry == nullptr && errno != 0) throw FolderError(errno);
        if (entry == nullptr) return;
        if (entry->d_name[0] == '.') continue;
        std::string name = ToDriveName(entry->d_name);
        // No look at the disk for a file that nobody wants.
        if (entry->d_type == DT_REG && !wantedFile(name)) continue;
        const Entry is = EntryOf(folder.get(), *entry);
        if (!is.kind || (*is.kind == EntryKind::File && entry->d_type != DT_REG && !wantedFile(name)))
            continue;
        take(std::move(name), *is.kind, is.number);
    }
}

}  // namespace tavrix
