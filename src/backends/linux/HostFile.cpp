#include "backends/linux/HostFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>
#include <vector>

namespace tavrix {
namespace {

[[noreturn]] void Fail(int systemError) {
    throw ErrorOf(systemError);
}

std::string NameBeside(const std::string& path) {
    constexpr std::string_view Letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device random;
    std::string name = HostFolderOf(path) + "/.tavrix-";
    for (int i = 0; i < 12; ++i)
        name.push_back(Letters[random() % Letters.size()]);
    return name;
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

FileDescriptor OpenForReading(const std::string& path) {
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file) Fail(errno);
    struct stat status {};
    if (::fstat(file.Number(), &status) != 0) Fail(errno);
    if (!S_ISREG(status.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccessError);
    return file;
}

std::optional<std::string> ReadWholeFile(const std::string& path) {
    try {
        const FileDescriptor file = OpenForReading(path);
        std::string content;
        struct stat status {};
        if (::fstat(file.Number(), &status) == 0)
            content.reserve(static_cast<std::size_t>(status.st_size) + 1);
        std::array<char, 65536> part;
        for (;;) {
            const ssize_t count = ::read(file.Number(), part.data(), part.size());
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return std::nullopt;
            if (count == 0) return content;
            content.append(part.data(), static_cast<std::size_t>(count));
        }
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

void MakeFolders(const std::string& path) {
    if (::mkdir(path.c_str(), 0700) == 0 || errno != ENOENT || path.size() < 2) return;
    MakeFolders(HostFolderOf(path));
    ::mkdir(path.c_str(), 0700);
}

FolderLock::FolderLock(const std::string& folder)
    : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!folder_) return;
    constexpr int MostWaits = 5000;
    for (int i = 0; ::flock(folder_.Number(), LOCK_EX | LOCK_NB) != 0; ++i) {
        if (errno != EWOULDBLOCK && errno != EINTR) return;
        if (i == MostWaits) throw RuntimeError(ErrorNumber::PermissionDenied);
        const timespec millisecond{0, 1'000'000};
        ::nanosleep(&millisecond, nullptr);
    }
}

TargetFile::TargetFile(const std::string& path, Options options)
    : path_(FollowLinks(path)), options_(options) {
    target_ = FileDescriptor(::open(path_.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!target_ && errno != ENOENT) {
        if (errno == EISDIR || errno == ENXIO) throw RuntimeError(ErrorNumber::PathFileAccessError);
        Fail(errno);
    }
    if (target_) {
        if (::fstat(target_.Number(), &former_) != 0) Fail(errno);
        if (!S_ISREG(former_.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccessError);
        // The superuser may open what is marked as protected; the mark counts all the same.
        if ((former_.st_mode & 0222U) == 0) throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    if (options_.inPlace) {
        BeginInPlace();
    } else {
        OpenBeside();
    }
}

TargetFile::~TargetFile() {
    if (!besideName_.empty() && !done_) ::unlink(besideName_.c_str());
}

void TargetFile::BeginInPlace() {
    options_.inPlace = true;
    if (target_) {
        content_ = std::move(target_);
        return;
    }
    content_ = FileDescriptor(
        ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, options_.newMode));
    if (!content_) {
        if (errno == ENOENT) throw RuntimeError(ErrorNumber::PathNotFound);
        Fail(errno);
    }
    emptied_ = true;
}

void TargetFile::OpenBeside() {
    const std::string folder = HostFolderOf(path_);
    content_ = FileDescriptor(::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, options_.newMode));
    if (content_) return;
    if (errno == ENOENT) throw RuntimeError(ErrorNumber::PathNotFound);

    // Some file systems know no unnamed files.
    besideName_ = NameBeside(path_);
    content_ = FileDescriptor(
        ::open(besideName_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, options_.newMode));
    if (content_) return;
    const int error = errno;
    besideName_.clear();
    if (error == ENOENT) throw RuntimeError(ErrorNumber::PathNotFound);
    if (!target_ || !CannotCreate(error)) Fail(error);
    BeginInPlace();
}

void TargetFile::Count(std::uint64_t bytes) {
    if (options_.inPlace && !emptied_) {
        if (::ftruncate(content_.Number(), 0) != 0) Fail(errno);
        emptied_ = true;
    }
    written_ += bytes;
    if (options_.limit && written_ > *options_.limit) {
        failed_ = true;
        throw RuntimeError(ErrorNumber::DiskFull);
    }
}

void TargetFile::Write(std::span<const std::byte> bytes) {
    Count(bytes.size());
    while (!bytes.empty()) {
        const ssize_t count = ::write(content_.Number(), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) {
            failed_ = true;
            Fail(errno);
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

void TargetFile::CopyFrom(const FileDescriptor& source, const struct stat& status) {
    Count(static_cast<std::uint64_t>(status.st_size));
    for (;;) {
        constexpr std::size_t Part = std::size_t{1} << 26U;
        const ssize_t count =
            ::copy_file_range(source.Number(), nullptr, content_.Number(), nullptr, Part, 0);
        if (count > 0) continue;
        if (count == 0) break;
        if (errno == EINTR) continue;
        if (errno == EXDEV || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP || errno == EPERM)
            break;
        failed_ = true;
        Fail(errno);
    }
    // What the system could not copy by itself, and what has been added meanwhile.
    constexpr std::size_t BufferSize = std::size_t{1} << 16U;
    std::vector<std::byte> buffer(BufferSize);
    for (;;) {
        const ssize_t count = ::read(source.Number(), buffer.data(), buffer.size());
        if (count == 0) break;
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) {
            failed_ = true;
            Fail(errno);
        }
        const std::uint64_t before = written_;
        Write(std::span(buffer).first(static_cast<std::size_t>(count)));
        written_ = before;  // counted above, by the file's length
    }
    const std::array<timespec, 2> times{status.st_atim, status.st_mtim};
    ::futimens(content_.Number(), times.data());
}

void TargetFile::Commit() {
    if (done_ || failed_) return;
    Count(0);
    if (options_.inPlace) {
        done_ = true;
        if (options_.sync && ::fsync(content_.Number()) != 0 && errno != EINVAL) Fail(errno);
        return;
    }
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
    if (options_.sync && ::fsync(content_.Number()) != 0 && errno != EINVAL) Fail(errno);
    if (besideName_.empty()) {
        const std::string name = NameBeside(path_);
        const std::string unnamed = "/proc/self/fd/" + std::to_string(content_.Number());
        if (::linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0) Fail(errno);
        besideName_ = name;
    }
    if (::rename(besideName_.c_str(), path_.c_str()) != 0) {
        if (errno == EISDIR) throw RuntimeError(ErrorNumber::PathFileAccessError);
        Fail(errno);
    }
    done_ = true;
}

}  // namespace tavrix
