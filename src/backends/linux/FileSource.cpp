#include "backends/linux/FileSource.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <limits>

#include "backends/linux/HostFile.h"
#include "base/RuntimeError.h"

namespace tavrix {
namespace {

std::string ParentOf(const std::string& path) {
    const std::size_t end = path.find_last_not_of('/');
    if (end == std::string::npos) return "/";
    const std::size_t slash = path.rfind('/', end);
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

ErrorNumber OpenFailure(int error, const std::string& path) {
    switch (error) {
        case ENOENT: {
            struct stat parent {};
            const bool there = stat(ParentOf(path).c_str(), &parent) == 0 && S_ISDIR(parent.st_mode);
            return there ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound;
        }
        case ENOTDIR:
            return ErrorNumber::PathNotFound;
        case ENAMETOOLONG:
            return ErrorNumber::FileNotFound;
        case EACCES:
        case EPERM:
            return ErrorNumber::PermissionDenied;
        case ENOMEDIUM:
            return ErrorNumber::DiskNotReady;
        case ENOMEM:
            return ErrorNumber::OutOfMemory;
        default:
            return ErrorNumber::PathFileAccessError;
    }
}

}  // namespace

FileSource::FileSource(const std::string& hostPath) {
    // Opening a pipe or a tape must not wait; and opening some devices does things, so look first.
    struct stat status {};
    if (stat(hostPath.c_str(), &status) != 0) throw RuntimeError(OpenFailure(errno, hostPath));
    if (!S_ISREG(status.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccessError);
    do {
        descriptor_ = open(hostPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    } while (descriptor_ < 0 && errno == EINTR);
    if (descriptor_ < 0) throw RuntimeError(OpenFailure(errno, hostPath));

    if (fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(descriptor_);
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    identity_ = {.device = status.st_dev,
                 .inode = status.st_ino,
                 .size = static_cast<std::uint64_t>(status.st_size),
                 .modifiedSeconds = status.st_mtim.tv_sec,
                 .modifiedNanoseconds = status.st_mtim.tv_nsec};
}

FileSource::~FileSource() {
    close(descriptor_);
}

std::size_t FileSource::ReadAt(std::uint64_t offset, std::span<std::byte> into) {
    if (offset >= Size()) return 0;
    std::size_t got = 0;
    while (got < into.size()) {
        const ssize_t count =
            pread(descriptor_, into.data() + got, into.size() - got, static_cast<off_t>(offset + got));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && !error_) error_ = ErrorOf(errno).Number();
        if (count <= 0) break;
        got += static_cast<std::size_t>(count);
    }
    return got;
}

IdentifiedSource OpenFileSource(const std::string& hostPath) {
    auto source = std::make_unique<FileSource>(hostPath);
    const FileIdentity& file = source->Identity();
    std::string identity = std::to_string(file.device);
    for (const std::string& part :
         {std::to_string(file.inode), std::to_string(file.size), std::to_string(file.modifiedSeconds),
          std::to_string(file.modifiedNanoseconds)})
        identity += ' ' + part;
    return {std::move(source), std::move(identity)};
}

}  // namespace tavrix
