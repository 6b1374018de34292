#include "backends/linux/MountTable.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <filesystem>
#include <sstream>
#include <string_view>
#include <system_error>

namespace tavrix {
namespace {

/// In the table, blanks and such are three octal digits behind a backslash.
std::string Unescaped(const std::string& text) {
    const auto octal = [](char c) { return c >= '0' && c <= '7'; };
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\\' && at + 3 < text.size() && octal(text[at + 1]) && octal(text[at + 2]) &&
            octal(text[at + 3])) {
            plain.push_back(static_cast<char>((text[at + 1] - '0') * 64 + (text[at + 2] - '0') * 8 +
                                              (text[at + 3] - '0')));
            at += 3;
        } else {
            plain.push_back(text[at]);
        }
    }
    return plain;
}

bool HasWord(const std::string& list, std::string_view wanted) {
    std::istringstream words(list);
    for (std::string word; std::getline(words, word, ',');) {
        if (word == wanted) return true;
    }
    return false;
}

bool SameState(const struct stat& a, const struct stat& b) {
    return a.st_ino == b.st_ino && a.st_dev == b.st_dev && a.st_size == b.st_size &&
           a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

}  // namespace

bool IsAtOrBelow(std::string_view path, std::string_view folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

const Mount* MountOf(const std::vector<Mount>& mounts, const std::string& hostPath) {
    const Mount* holder = nullptr;
    for (const Mount& mount : mounts) {
        const std::string folder = mount.folder == "/" ? std::string() : mount.folder;
        if (!IsAtOrBelow(hostPath, folder)) continue;
        // A later mount covers an earlier one.
        if (holder == nullptr || mount.folder.size() >= holder->folder.size()) holder = &mount;
    }
    return holder;
}

std::vector<Mount> MountTable::Read() const {
    std::vector<Mount> mounts;
    std::istringstream lines(ReadWholeFile(file_).value_or(std::string()));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        Mount mount;
        std::string options;
        fields >> mount.device >> mount.folder >> mount.system >> options;
        if (mount.folder.empty()) continue;
        mount.device = Unescaped(mount.device);
        mount.folder = Unescaped(mount.folder);
        mount.writable = HasWord(options, "rw");
        mounts.push_back(std::move(mount));
    }
    return mounts;
}

bool MountTable::Changed() {
    const bool first = !watched_;
    if (first) watched_ = FileDescriptor(::open(file_.c_str(), O_RDONLY | O_CLOEXEC));
    if (!watched_) return false;
    struct statfs system {};
    if (::fstatfs(watched_.Number(), &system) == 0 && system.f_type == PROC_SUPER_MAGIC) {
        pollfd table{watched_.Number(), POLLPRI, 0};
        return (::poll(&table, 1, 0) > 0 && (table.revents & (POLLPRI | POLLERR)) != 0) || first;
    }
    struct stat now {};
    if (::stat(file_.c_str(), &now) != 0) return false;
    const bool changed = first || !SameState(now, seen_);
    seen_ = now;
    return changed;
}

std::string MountTable::BlockOf(const std::string& device) const {
    return blocks_ + device.substr(device.rfind('/'));
}

std::optional<bool> MountTable::Removable(const std::string& device) const {
    if (!device.starts_with('/')) return std::nullopt;
    for (const char* flag : {"/removable", "/../removable"}) {
        if (const auto content = ReadWholeFile(BlockOf(device) + flag)) return !content->starts_with('0');
    }
    return std::nullopt;
}

std::string MountTable::DiskOf(const std::string& device) const {
    if (!device.starts_with('/')) return device;
    std::error_code error;
    const std::filesystem::path named = std::filesystem::canonical(device, error);
    const std::string plain = error ? device : named.string();
    const std::filesystem::path block = std::filesystem::canonical(BlockOf(plain), error);
    const bool part = !error && std::filesystem::exists(block / "partition", error);
    return (part ? block.parent_path() : std::filesystem::path(plain)).filename().string();
}

}  // namespace tavrix
