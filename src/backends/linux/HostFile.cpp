#include "backends/linux/HostFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <linux/magic.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <random>
#include <system_error>
#include <utility>
#include <vector>

#include "backends/linux/HostPaths.h"

namespace tavrix {
namespace {

[[noreturn]] void Fail(int systemError) {
    throw ErrorOf(systemError);
}

/// Names of files that are being written: this and so many letters.
constexpr std::string_view BesidePrefix = ".tavrix-";
constexpr std::size_t BesideLetters = 12;

/// Whether nobody else held the lock of a file; where there are no locks, nobody does.
bool TryLock(const FileDescriptor& file) {
    return ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0 || (errno != EWOULDBLOCK && errno != EINTR);
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

/// A file without a name, not in the target's folder.
FileDescriptor UnnamedElsewhere() {
    const std::string place = EnvironmentValue("TMPDIR", "/tmp");
    FileDescriptor file(::open(place.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
    if (!file) file = FileDescriptor(::memfd_create("tavrix", MFD_CLOEXEC));
    if (!file) Fail(errno);
    return file;
}

/// Fails with ErrorOf(errno).
void WriteAll(const FileDescriptor& file, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file.Number(), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) Fail(errno);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

/// Whether files are on a disk where room that is taken at once saves half of what writing costs, and where a copy within
/// it is made byte by byte: the file system of most machines.
bool IsPlainDisk(const FileDescriptor& file) {
    struct statfs system {};
    return ::fstatfs(file.Number(), &system) == 0 && system.f_type == EXT4_SUPER_MAGIC;
}

constexpr std::size_t CopyPiece = std::size_t{8} << 20U;  ///< bytes between two questions whether to go on

/// Writes the rest of a file to another one. False when it was given up.
bool Pour(const FileDescriptor& from, const FileDescriptor& to, const std::function<bool()>& goOn = {}) {
    // It stays in the processor's cache.
    constexpr std::size_t BufferSize = std::size_t{256} << 10U;
    const auto buffer = std::make_unique_for_overwrite<std::byte[]>(BufferSize);
    for (std::size_t written = 0;;) {
        const ssize_t count = ::read(from.Number(), buffer.get(), BufferSize);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) Fail(errno);
        if (count == 0) return true;
        WriteAll(to, std::span(buffer.get(), static_cast<std::size_t>(count)));
        written += static_cast<std::size_t>(count);
        if (written < CopyPiece) continue;
        written = 0;
        if (goOn && !goOn()) return false;
    }
}

bool IsFull(const RuntimeError& error) {
    return error.Number() == ErrorNumber::DiskFull;
}

/// The first bytes of a file, in one without a name that is not in the target's folder.
FileDescriptor Elsewhere(const FileDescriptor& file, off_t length) {
    if (::ftruncate(file.Number(), length) != 0) Fail(errno);
    const std::string itself = "/proc/self/fd/" + std::to_string(file.Number());
    const FileDescriptor readable(::open(itself.c_str(), O_RDONLY | O_CLOEXEC));
    if (!readable) Fail(errno);
    FileDescriptor elsewhere = UnnamedElsewhere();
    Pour(readable, elsewhere);
    return elsewhere;
}

/// Writes one file over another; a failure leaves whatever stands then.
void WriteOver(const FileDescriptor& from, const FileDescriptor& to, off_t length) {
    if (::lseek(from.Number(), 0, SEEK_SET) < 0 || ::lseek(to.Number(), 0, SEEK_SET) < 0) Fail(errno);
    Pour(from, to);
    if (::ftruncate(to.Number(), length) != 0) Fail(errno);
}

/// Takes the room for a longer content, without touching what stands there. File systems that cannot tell have room.
void TakeRoom(const FileDescriptor& file, off_t from, off_t to) {
    if (to <= from) return;
    const int error = ::posix_fallocate(file.Number(), from, to - from);
    if (error == 0 || error == EINVAL || error == EOPNOTSUPP || error == ENOSYS) return;
    [[maybe_unused]] const int ignored = ::ftruncate(file.Number(), from);
    Fail(error);
}

bool CannotCreate(int systemError) {
    return systemError == EACCES || systemError == EPERM || systemError == EROFS;
}

}  // namespace

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
        Close();
        number_ = std::exchange(other.number_, -1);
    }
    return *this;
}

void FileDescriptor::Close() {
    if (number_ >= 0) ::close(std::exchange(number_, -1));
}

RuntimeError ErrorOf(int systemError) {
    switch (systemError) {
        case ENOENT:
            return RuntimeError(ErrorNumber::FileNotFound);
        case ENOTDIR:
        case ELOOP:
            return RuntimeError(ErrorNumber::PathNotFound);
        case EACCES:
        case EPERM:
        case EROFS:
        case ETXTBSY:
        case EBUSY:
            return RuntimeError(ErrorNumber::PermissionDenied);
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return RuntimeError(ErrorNumber::DiskFull);
        case ENOMEM:
            return RuntimeError(ErrorNumber::OutOfMemory);
        case EINVAL:
        case ENAMETOOLONG:
            return RuntimeError(ErrorNumber::BadFileNameOrNumber);
        case ENOMEDIUM:
        case ENXIO:
        case ENODEV:
        case ESTALE:
            return RuntimeError(ErrorNumber::DiskNotReady);
        default:
            return RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

std::string HostFolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameBeside(const std::string& path) {
    constexpr std::string_view Letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device random;
    std::string name = HostFolderOf(path) + "/" + std::string(BesidePrefix);
    for (std::size_t i = 0; i < BesideLetters; ++i)
        name.push_back(Letters[random() % Letters.size()]);
    return name;
}

int RenameWithoutReplacing(const std::string& from, const std::string& to) {
    if (::syscall(SYS_renameat2, AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    struct stat status {};
    if (::lstat(to.c_str(), &status) == 0) return EEXIST;
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

std::string FollowLinks(const std::string& path) {
    std::string current = path;
    constexpr int MostLinks = 40;
    for (int i = 0; i < MostLinks; ++i) {
        std::error_code error;
        const auto link = std::filesystem::read_symlink(current, error);
        if (error) return current;
        current = link.is_absolute() ? link.string() : HostFolderOf(current) + "/" + link.string();
    }
    Fail(ELOOP);
}

bool IsReadOnly(const std::string& path, const struct stat& status) {
    return (status.st_mode & 0222U) == 0 || ::access(path.c_str(), W_OK) != 0;
}

namespace {

FileDescriptor TryOpenForReading(const std::string& path) {
    return FileDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
}

}  // namespace

FileDescriptor OpenForReading(const std::string& path) {
    FileDescriptor file = TryOpenForReading(path);
    if (!file) Fail(errno);
    struct stat status {};
    if (::fstat(file.Number(), &status) != 0) Fail(errno);
    if (!S_ISREG(status.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccessError);
    return file;
}

// Nothing is thrown: most starts look for files that nobody has, and the first exception of a process takes long.
std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t largest) {
    const FileDescriptor file = TryOpenForReading(path);
    struct stat status {};
    if (!file || ::fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    if (static_cast<std::uint64_t>(status.st_size) > largest) return std::nullopt;
    std::string content;
    content.reserve(static_cast<std::size_t>(status.st_size) + 1);
    std::array<char, 65536> part;
    for (;;) {
        const ssize_t count = ::read(file.Number(), part.data(), part.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        if (count == 0) return content;
        content.append(part.data(), static_cast<std::size_t>(count));
        if (content.size() > largest) return std::nullopt;
    }
}

void MakeFolders(const std::string& path) {
    if (::mkdir(path.c_str(), 0700) == 0 || errno != ENOENT || path.size() < 2) return;
    MakeFolders(HostFolderOf(path));
    ::mkdir(path.c_str(), 0700);
}

FolderLock::FolderLock(const std::string& folder, std::chrono::milliseconds patience)
    : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!folder_) return;
    const auto end = std::chrono::steady_clock::now() + patience;
    while (::flock(folder_.Number(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return;
        if (std::chrono::steady_clock::now() >= end) {
            had_ = false;
            return;
        }
        const timespec millisecond{0, 1'000'000};
        ::nanosleep(&millisecond, nullptr);
    }
}

void RemoveLeftovers(const std::string& folder) {
    const std::unique_ptr<DIR, CloseFolder> entries(::opendir(folder.c_str()));
    if (!entries) return;
    while (const dirent* const entry = ::readdir(entries.get())) {
        const std::string_view name = entry->d_name;
        if (!name.starts_with(BesidePrefix) || name.size() != BesidePrefix.size() + BesideLetters) continue;
        const std::string path = (folder == "/" ? "/" : folder + "/") + std::string(name);
        const FileDescriptor file(
            ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
        struct stat status {};
        const bool ours = file && ::fstat(file.Number(), &status) == 0 && S_ISREG(status.st_mode) &&
                          status.st_uid == ::geteuid();
        // Whoever is writing holds its lock.
        if (ours && ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0) ::unlink(path.c_str());
    }
}

TargetFile::TargetFile(const std::string& path, Options options)
    : path_(options.throughLinks ? FollowLinks(path) : path), options_(options) {
    const int noLink = options_.throughLinks ? 0 : O_NOFOLLOW;
    target_ = FileDescriptor(::open(path_.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | noLink));
    if (!target_ && errno != ENOENT && (noLink == 0 || errno != ELOOP)) {
        if (errno == EISDIR || errno == ENXIO) throw RuntimeError(ErrorNumber::PathFileAccessError);
        Fail(errno);
    }
    if (target_) {
        if (::fstat(target_.Number(), &former_) != 0) Fail(errno);
        if (!S_ISREG(former_.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccessError);
        // The superuser may open what is marked as protected; the mark counts all the same.
        if ((former_.st_mode & 0222U) == 0) throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    if (options_.cleanFolder) RemoveLeftovers(HostFolderOf(path_));
    if (options_.inPlace) {
        OpenElsewhere();
    } else {
        OpenBeside();
    }
}

TargetFile::~TargetFile() {
    if (!besideName_.empty() && !done_) ::unlink(besideName_.c_str());
}

bool TargetFile::MayWriteOver() const {
    return target_ && !(options_.keepsOtherNames && former_.st_nlink > 1);
}

void TargetFile::OpenElsewhere() {
    options_.inPlace = true;
    if (!target_ && ::access(HostFolderOf(path_).c_str(), W_OK | X_OK) != 0) {
        if (errno == ENOENT) throw RuntimeError(ErrorNumber::PathNotFound);
        Fail(errno);
    }
    content_ = UnnamedElsewhere();
}

void TargetFile::OpenBeside() {
    const std::string folder = HostFolderOf(path_);
    content_ = FileDescriptor(::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, options_.newMode));
    if (content_) {
        TryLock(content_);
        return;
    }
    if (errno == ENOENT) throw RuntimeError(ErrorNumber::PathNotFound);

    // Some file systems know no unnamed files.
    constexpr int MostTries = 5;
    for (int i = 0; i < MostTries; ++i) {
        besideName_ = NameBeside(path_);
        content_ = FileDescriptor(::open(
            besideName_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, options_.newMode));
        if (!content_) break;
        // Somebody who cleans up may have come between.
        struct stat status {};
        if (TryLock(content_) && ::fstat(content_.Number(), &status) == 0 && status.st_nlink > 0) return;
    }
    const int error = content_ ? EBUSY : errno;
    content_.Close();
    besideName_.clear();
    if (error == ENOENT) throw RuntimeError(ErrorNumber::PathNotFound);
    if (!MayWriteOver() || !CannotCreate(error)) Fail(error);
    OpenElsewhere();
}

template <class Step>
void TargetFile::Try(Step&& step) {
    if (failure_) throw RuntimeError(*failure_);
    try {
        step();
    } catch (const RuntimeError& error) {
        failure_ = error;
        throw;
    }
}

void TargetFile::Count(std::uint64_t bytes) {
    written_ += bytes;
    if (options_.limit && written_ > *options_.limit) throw RuntimeError(ErrorNumber::DiskFull);
}

void TargetFile::Expect(std::uint64_t bytes) {
    constexpr std::uint64_t WorthIt = 1U << 20U;
    if (bytes < WorthIt || options_.inPlace || failure_ || (options_.limit && bytes > *options_.limit))
        return;
    if (!IsPlainDisk(content_)) return;
    tookRoom_ = true;
    // Where it fails a part may have been taken; it is given back with the rest.
    [[maybe_unused]] const int ignored =
        ::fallocate(content_.Number(), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(bytes));
}

void TargetFile::GiveRoomBack() {
    struct stat status {};
    if (!tookRoom_ || ::fstat(content_.Number(), &status) != 0) return;
    constexpr std::int64_t Sector = 512;
    // What lies behind the end of a file goes when it is cut there.
    if (status.st_blocks * Sector - status.st_size < status.st_blksize) return;
    [[maybe_unused]] const int ignored = ::ftruncate(content_.Number(), status.st_size);
}

void TargetFile::Write(std::span<const std::byte> bytes) {
    Try([&] {
        Count(bytes.size());
        const off_t before = ::lseek(content_.Number(), 0, SEEK_CUR);
        try {
            WriteAll(content_, bytes);
        } catch (const RuntimeError& error) {
            if (!IsFull(error) || !MayWriteOver() || options_.inPlace) throw;
            FileDescriptor former = std::exchange(content_, Elsewhere(content_, before));
            former.Close();
            options_.inPlace = true;
            WriteAll(content_, bytes);
        }
    });
}

bool TargetFile::CopyFrom(const FileDescriptor& source, const struct stat& status,
                          const std::function<bool()>& goOn) {
    bool whole = false;
    Try([&] {
        Count(static_cast<std::uint64_t>(status.st_size));
        Expect(static_cast<std::uint64_t>(status.st_size));
        try {
            whole = (!goOn || goOn()) && TakeOver(source, goOn);
        } catch (const RuntimeError& error) {
            if (!IsFull(error) || !MayWriteOver() || options_.inPlace) throw;
            content_.Close();
            OpenElsewhere();
            if (::lseek(source.Number(), 0, SEEK_SET) < 0) Fail(errno);
            whole = TakeOver(source, goOn);
        }
        times_ = {status.st_atim, status.st_mtim};
    });
    return whole;
}

bool TargetFile::TakeOver(const FileDescriptor& source, const std::function<bool()>& goOn) {
    while (!tookRoom_) {
        const ssize_t count =
            ::copy_file_range(source.Number(), nullptr, content_.Number(), nullptr, CopyPiece, 0);
        if (count > 0 && goOn && static_cast<std::size_t>(count) == CopyPiece && !goOn()) return false;
        if (count > 0 || (count < 0 && errno == EINTR)) continue;
        if (count == 0) break;
        if (errno == EXDEV || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP || errno == EPERM)
            break;
        Fail(errno);
    }
    // What the system could not copy by itself or would copy no faster, and what has been added meanwhile.
    return Pour(source, content_, goOn);
}

void TargetFile::Commit() {
    if (done_) return;
    Try([&] {
        if (options_.inPlace) {
            CommitInPlace();
        } else {
            CommitBeside();
        }
    });
    done_ = true;
}

void TargetFile::Sync() const {
    if (times_) ::futimens(content_.Number(), times_->data());
    if (options_.sync && ::fsync(content_.Number()) != 0 && errno != EINVAL) Fail(errno);
}

void TargetFile::CommitBeside() {
    GiveRoomBack();
    if (target_) {
        // Ownership is kept where the user may give it; the mode comes last, since a change of owner alters it.
        if (former_.st_uid != ::geteuid() || former_.st_gid != ::getegid()) {
            if (::fchown(content_.Number(), former_.st_uid, former_.st_gid) != 0) {
                [[maybe_unused]] const int ignored =
                    ::fchown(content_.Number(), static_cast<uid_t>(-1), former_.st_gid);
            }
        }
        if (options_.keepMode) ::fchmod(content_.Number(), former_.st_mode & 07777U);
    }
    if (options_.exactMode) ::fchmod(content_.Number(), options_.newMode);
    Sync();
    if (besideName_.empty()) {
        const std::string unnamed = "/proc/self/fd/" + std::to_string(content_.Number());
        // Where nothing stands the file gets its name at once.
        if (!target_) {
            if (::linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, path_.c_str(), AT_SYMLINK_FOLLOW) == 0) return;
            if (errno != EEXIST) Fail(errno);
            if (!options_.replaces) throw RuntimeError(ErrorNumber::FileAlreadyExists);
        }
        const std::string name = NameBeside(path_);
        if (::linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0) Fail(errno);
        besideName_ = name;
    }
    if (!options_.replaces) {
        const int failed = RenameWithoutReplacing(besideName_, path_);
        if (failed == EEXIST) throw RuntimeError(ErrorNumber::FileAlreadyExists);
        if (failed != 0) Fail(failed);
        return;
    }
    if (::rename(besideName_.c_str(), path_.c_str()) != 0) {
        if (errno == EISDIR) throw RuntimeError(ErrorNumber::PathFileAccessError);
        Fail(errno);
    }
}

void TargetFile::CommitInPlace() {
    // What was begun beside the target takes its room.
    if (!besideName_.empty()) ::unlink(std::exchange(besideName_, {}).c_str());
    const FileDescriptor content = std::exchange(content_, FileDescriptor());
    const off_t length = ::lseek(content.Number(), 0, SEEK_END);
    if (length < 0) Fail(errno);
    const bool made = !target_;
    FileDescriptor former;
    if (made) {
        content_ = FileDescriptor(
            ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, options_.newMode));
        if (!content_) Fail(errno);
        former_.st_size = 0;
    } else {
        content_ = std::move(target_);
        if (::fstat(content_.Number(), &former_) != 0) Fail(errno);
        // A file that its user may write and not read is not brought back.
        const FileDescriptor readable(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
        if (readable) {
            former = UnnamedElsewhere();
            static_cast<void>(Pour(readable, former));
        }
    }
    try {
        TakeRoom(content_, former_.st_size, length);
        WriteOver(content, content_, length);
        Sync();
    } catch (const RuntimeError&) {
        if (made) ::unlink(path_.c_str());
        if (former) SkipFailure([&] { WriteOver(former, content_, former_.st_size); });
        throw;
    }
}

}  // namespace tavrix
