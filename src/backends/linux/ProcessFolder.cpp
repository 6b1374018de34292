#include "backends/linux/ProcessFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"

namespace tavrix {
namespace {

namespace fs = std::filesystem;

/// The folder, open; nothing for what is none of the user's own, or is a link.
FileDescriptor OpenOwn(const std::string& path) {
    FileDescriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW));
    struct stat status {};
    const bool own = folder && ::fstat(folder.Number(), &status) == 0 && status.st_uid == ::geteuid();
    return own ? std::move(folder) : FileDescriptor();
}

bool IsNumber(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

ProcessFolder::ProcessFolder(std::string parent, const std::string& kind)
    : parent_(std::move(parent)),
      prefix_(kind + "."),
      path_(parent_ + "/" + prefix_ + std::to_string(::getpid())) {}

void ProcessFolder::Make(mode_t mode) {
    // Else another process could take the folder for one that was left, before its lock is held.
    const FolderLock turn(parent_);
    RemoveLeft();
    if (::mkdir(path_.c_str(), mode) != 0) throw ErrorOf(errno);
    held_ = FileDescriptor(::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW));
    if (!held_) throw ErrorOf(errno);
    // Without locks nothing is ever taken for left.
    [[maybe_unused]] const int ignored = ::flock(held_.Number(), LOCK_EX | LOCK_NB);
}

void ProcessFolder::RemoveLeft() const {
    std::error_code error;
    for (fs::directory_iterator at(parent_, error), end; !error && at != end; at.increment(error)) {
        const std::string name = at->path().filename().string();
        if (!name.starts_with(prefix_) || !IsNumber(std::string_view(name).substr(prefix_.size()))) continue;
        const FileDescriptor folder = OpenOwn(at->path().string());
        if (!folder || ::flock(folder.Number(), LOCK_EX | LOCK_NB) != 0) continue;
        std::error_code ignored;
        fs::remove_all(at->path(), ignored);
    }
}

}  // namespace tavrix
