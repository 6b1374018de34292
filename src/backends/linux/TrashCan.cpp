#include "backends/linux/TrashCan.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "backends/linux/HostFile.h"
#include "backends/shared/FileAddress.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

constexpr int MostNames = 100'000;
constexpr std::size_t LongestName = 200;  ///< bytes; leaves room for a number and .trashinfo

bool Exists(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

std::string Below(const std::string& folder, const std::string& name) {
    return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

/// A folder of our own, made if it is missing; links do not count, since others may have laid them.
bool IsOwnFolder(const std::string& path) {
    ::mkdir(path.c_str(), 0700);
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid();
}

std::string LocalMoment() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    std::array<char, 32> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &local);
    return {text.data(), length};
}

/// The name that a file gets in the trash: its own, with a number behind the stem from the second try on.
std::string NameOfTry(const std::string& name, int attempt) {
    const std::size_t point = name.rfind('.');
    const bool hasEnding = point != std::string::npos && point > 0 && name.size() - point <= 20;
    const std::string ending = hasEnding ? name.substr(point) : std::string();
    std::string stem = name.substr(0, name.size() - ending.size());
    if (stem.size() > LongestName) {
        std::size_t cut = LongestName;
        while (cut > 0 && (static_cast<unsigned char>(stem[cut]) & 0xC0U) == 0x80U)
            --cut;
        stem.resize(cut > 0 ? cut : LongestName);
    }
    return attempt == 1 ? stem + ending : stem + "." + std::to_string(attempt) + ending;
}

/// A place for a file in a trash: the note about it, which claims the name, and the path to bring it to. Given back
/// at the end unless it was used.
class Slot {
  public:
    /// Throws when the trash cannot be written.
    Slot(const std::string& trash, const std::string& name, const std::string& notedPath) {
        const std::string note =
            "[Trash Info]\nPath=" + EscapedPath(notedPath) + "\nDeletionDate=" + LocalMoment() + "\n";
        for (int attempt = 1; attempt <= MostNames; ++attempt) {
            const std::string tried = NameOfTry(name, attempt);
            notePath_ = trash + "/info/" + tried + ".trashinfo";
            path_ = trash + "/files/" + tried;
            if (Exists(path_)) continue;  // it lost its note some day; it must not be written over
            const FileDescriptor file(
                ::open(notePath_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
            if (!file && errno == EEXIST) continue;
            if (!file) throw ErrorOf(errno);
            claimed_ = true;
            try {
                WriteNote(file, note);
            } catch (const RuntimeError&) {
                GiveBack();
                throw;
            }
            return;
        }
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;
    ~Slot() { GiveBack(); }

    [[nodiscard]] const std::string& Path() const { return path_; }
    void Keep() { claimed_ = false; }

  private:
    static void WriteNote(const FileDescriptor& file, std::string_view note) {
        while (!note.empty()) {
            const ssize_t count = ::write(file.Number(), note.data(), note.size());
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) throw ErrorOf(errno);
            note.remove_prefix(static_cast<std::size_t>(count));
        }
    }
    void GiveBack() {
        if (std::exchange(claimed_, false)) ::unlink(notePath_.c_str());
    }

    std::string notePath_;
    std::string path_;
    bool claimed_ = false;
};

/// 0, or the error of the system. Never replaces what stands at `to`.
int MoveWithin(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    // This file system cannot tell; the note has claimed the name, and a look must do.
    if (Exists(to)) return EEXIST;
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

void CopyFile(const std::string& from, const struct stat& status, const std::string& to) {
    if (S_ISLNK(status.st_mode)) {
        std::error_code error;
        std::filesystem::copy_symlink(from, to, error);
        if (error) throw ErrorOf(error.value());
        return;
    }
    const FileDescriptor source = OpenForReading(from);
    if (!FileDescriptor(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600)))
        throw ErrorOf(errno);
    try {
        TargetFile::Options options;
        options.inPlace = true;
        TargetFile target(to, options);
        static_cast<void>(target.CopyFrom(source, status));
        target.Commit();
        ::chmod(to.c_str(), status.st_mode & 0777U);
    } catch (const RuntimeError&) {
        ::unlink(to.c_str());
        throw;
    }
}

/// What a trash made of a file.
struct Attempt {
    bool taken = false;
    RuntimeError error{ErrorNumber::PathFileAccessError};  ///< when it was not taken
};

Attempt TryToMove(const std::string& trash, const std::string& file, const std::string& notedPath) {
    try {
        Slot slot(trash, file.substr(file.rfind('/') + 1), notedPath);
        if (const int error = MoveWithin(file, slot.Path()); error != 0) return {false, ErrorOf(error)};
        slot.Keep();
        return {.taken = true};
    } catch (const RuntimeError& error) {
        return {false, error};
    }
}

Attempt TryToCopy(const std::string& trash, const std::string& file) {
    try {
        struct stat status {};
        if (::lstat(file.c_str(), &status) != 0) return {false, ErrorOf(errno)};
        Slot slot(trash, file.substr(file.rfind('/') + 1), file);
        CopyFile(file, status, slot.Path());
        if (::unlink(file.c_str()) != 0) {
            const int error = errno;
            ::unlink(slot.Path().c_str());
            return {false, ErrorOf(error)};
        }
        slot.Keep();
        return {.taken = true};
    } catch (const RuntimeError& error) {
        return {false, error};
    }
}

bool HasItsFolders(const std::string& trash) {
    return IsOwnFolder(trash + "/files") && IsOwnFolder(trash + "/info");
}

/// The trash at the top of a file system; nothing when there can be none.
std::optional<std::string> TrashAt(const std::string& top) {
    const std::string user = std::to_string(::geteuid());
    const std::string common = Below(top, ".Trash");
    struct stat status {};
    // Without the sticky bit, or through a link, others could take away what is put there.
    if (::lstat(common.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
        (status.st_mode & static_cast<mode_t>(S_ISVTX)) != 0) {
        const std::string own = common + "/" + user;
        if (IsOwnFolder(own) && HasItsFolders(own)) return own;
    }
    const std::string own = Below(top, ".Trash-" + user);
    if (IsOwnFolder(own) && HasItsFolders(own)) return own;
    return std::nullopt;
}

/// A path without links, as far as it leads to something.
std::string RealPathOf(const std::string& path) {
    std::error_code error;
    const std::string real = std::filesystem::weakly_canonical(path, error).string();
    return error ? path : real;
}

std::string RelativeTo(const std::string& top, const std::string& file) {
    return file.substr(top.ends_with('/') ? top.size() : top.size() + 1);
}

/// Whether the rights to a folder allow taking a file out of it.
bool MayTakeFrom(const std::string& folder, const struct stat& file) {
    if (::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0) return false;
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0) return false;
    const uid_t user = ::geteuid();
    const bool sticky = (status.st_mode & static_cast<mode_t>(S_ISVTX)) != 0;
    return !sticky || user == 0 || status.st_uid == user || file.st_uid == user;
}

/// The reason that a user gets to hear; callers know the trash by few of them.
RuntimeError Refusal(const RuntimeError& error) {
    switch (error.Number()) {
        case ErrorNumber::DiskFull:
        case ErrorNumber::PermissionDenied:
        case ErrorNumber::FileNotFound:
            return error;
        default:
            return RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

}  // namespace

std::string MountFolderOf(const std::string& folder) {
    struct stat status {};
    std::string top = folder;
    while (::stat(top.c_str(), &status) != 0 && top != "/")
        top = HostFolderOf(top);
    const dev_t device = status.st_dev;
    while (top != "/") {
        const std::string above = HostFolderOf(top);
        if (::stat(above.c_str(), &status) != 0 || status.st_dev != device) break;
        top = above;
    }
    return top;
}

TrashCan::TrashCan(std::string home, MountFinder mountFolderOf)
    : home_(std::move(home)), mountFolderOf_(std::move(mountFolderOf)) {}

void TrashCan::Take(const std::string& file, Place place) const {
    std::error_code error;
    const std::string folder = std::filesystem::canonical(HostFolderOf(file), error).string();
    struct stat status {};
    if (error || ::lstat(file.c_str(), &status) != 0 || S_ISDIR(status.st_mode))
        throw RuntimeError(ErrorNumber::FileNotFound);
    // Found out here, not after a long copy.
    if (!MayTakeFrom(folder, status)) throw RuntimeError(ErrorNumber::PermissionDenied);
    const std::string path = Below(folder, file.substr(file.rfind('/') + 1));

    MakeFolders(home_);
    const std::string home = RealPathOf(home_);
    const bool homeUsable = IsOwnFolder(home) && HasItsFolders(home);
    const std::string top = mountFolderOf_(folder);
    const bool sameSystem = mountFolderOf_(home) == top;

    Attempt attempt{.error = RuntimeError(ErrorNumber::PermissionDenied)};
    if (homeUsable && sameSystem) attempt = TryToMove(home, path, path);
    if (!attempt.taken && !sameSystem && place == Place::Any) {
        if (const auto trash = TrashAt(top)) attempt = TryToMove(*trash, path, RelativeTo(top, path));
    }
    if (!attempt.taken && homeUsable && Exists(path)) attempt = TryToCopy(home, path);
    if (!attempt.taken) throw Refusal(attempt.error);
}

}  // namespace tavrix
