#include "backends/linux/FileMove.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/RuntimeError.h"

namespace tavrix {
namespace {

[[noreturn]] void Fail(int systemError) {
    throw systemError == EEXIST || systemError == EISDIR || systemError == ENOTEMPTY
        ? RuntimeError(ErrorNumber::FileAlreadyExists)
        : ErrorOf(systemError);
}

/// What a link says about where it leads; empty for what is none.
std::string LinkOf(const std::string& path) {
    std::error_code error;
    const auto link = std::filesystem::read_symlink(path, error);
    return error ? std::string() : link.string();
}

int RenameFile(const std::string& from, const std::string& to, bool replaces) {
    if (!replaces) return RenameWithoutReplacing(from, to);
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace

bool FileMove::OntoItself() const {
    return target.exists && target.path == source.path;
}

bool FileMove::OnOneDisk() const {
    // A folder that stands for a disk has a disk's room, whatever file system it is on.
    return source.drive.letter == target.drive.letter || (!source.drive.floppy && !target.drive.floppy);
}

void FileMove::RemoveSource() const {
    if (::unlink(source.path.c_str()) != 0) throw ErrorOf(errno);
    DriveMap::KeepDisk(source.drive);
}

bool FileMove::RenameTo(const std::string& to, bool replaces) const {
    if (!OnOneDisk()) return false;
    if (replaces && options.sync) {
        // What is replaced goes at once, so what comes must be on the disk.
        const FileDescriptor content = OpenForReading(source.path);
        ::fsync(content.Number());
    }
    const int failed = RenameFile(source.path, to, replaces);
    if (failed == EXDEV) return false;
    if (failed != 0) Fail(failed);
    DriveMap::KeepDisk(source.drive);
    return true;
}

void FileMove::MakeLink(const std::string& to, const std::string& leadsTo, bool replaces) const {
    const std::string beside = NameBeside(to);
    if (::symlink(leadsTo.c_str(), beside.c_str()) != 0) throw ErrorOf(errno);
    if (const int failed = RenameFile(beside, to, replaces); failed != 0) {
        ::unlink(beside.c_str());
        Fail(failed);
    }
    RemoveSource();
}

bool FileMove::CopyTo(const std::string& to, bool replaces, const GoOn& goOn) const {
    // A copy whose original could not go would be a second file.
    if (::faccessat(AT_FDCWD, HostFolderOf(source.path).c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        throw ErrorOf(errno);
    const FileDescriptor content = OpenForReading(source.path);
    TargetFile::Options whole = options;
    whole.newMode = source.status.st_mode & 0777U;
    whole.keepMode = false;
    whole.exactMode = true;
    whole.throughLinks = false;
    whole.replaces = replaces;
    TargetFile copy(to, whole);
    if (!copy.CopyFrom(content, source.status, goOn)) return false;
    copy.Commit();
    RemoveSource();
    return true;
}

bool FileMove::Bring(const std::string& to, bool replaces, const GoOn& goOn) const {
    const std::string link = LinkOf(source.path);
    const bool ofItsFolder = !link.empty() && !link.starts_with('/');
    if (ofItsFolder && HostFolderOf(source.path) != HostFolderOf(to)) {
        MakeLink(to, HostFolderOf(source.path) + "/" + link, replaces);
        return true;
    }
    if (RenameTo(to, replaces)) return true;
    if (link.empty()) return CopyTo(to, replaces, goOn);
    MakeLink(to, link, replaces);
    return true;
}

void FileMove::Rename() const {
    if (target.exists && !OntoItself()) throw RuntimeError(ErrorNumber::FileAlreadyExists);
    if (OntoItself() && newPath == source.path) return;
    static_cast<void>(Bring(newPath, false, {}));
}

bool FileMove::Replace(const GoOn& goOn) const {
    if (OntoItself() && newPath == source.path) throw RuntimeError(ErrorNumber::PermissionDenied);
    if (!target.exists || OntoItself()) return Bring(newPath, false, goOn);
    if (source.status.st_dev == target.status.st_dev && source.status.st_ino == target.status.st_ino) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    if (!target.IsFile() || IsReadOnly(target.path, target.status)) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    if (!Bring(target.path, true, goOn)) return false;
    // The name that was asked for may be another spelling; the file is there in either.
    if (newPath != target.path) static_cast<void>(RenameWithoutReplacing(target.path, newPath));
    return true;
}

}  // namespace tavrix
