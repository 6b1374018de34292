#include "backends/linux/FolderNames.h"

#include <dirent.h>

#include <memory>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostNames.h"
#include "base/Text.h"

namespace tavrix {
namespace {

constexpr std::chrono::milliseconds Patience(250);

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

}  // namespace

FolderNames::Stamp FolderNames::StampOf(const std::string& folder) {
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0) return {};
    return {status.st_dev, status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

bool FolderNames::Recent(Clock::time_point moment) const {
    return Clock::now() - moment < Patience;
}

bool FolderNames::Tells(const Stamp& stamp) const {
    if (stamp.nanoseconds == 0) return false;  // a file system that counts seconds
    if (stamp == made_) return true;
    constexpr std::chrono::milliseconds LongestTick(20);
    const auto date = std::chrono::seconds(stamp.seconds) + std::chrono::nanoseconds(stamp.nanoseconds);
    return std::chrono::system_clock::now().time_since_epoch() - date > LongestTick;
}

void FolderNames::Read(const Stamp& stamp) {
    names_.clear();
    stamp_ = stamp;
    read_ = Clock::now();
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder_.c_str()));
    known_ = open != nullptr && Tells(stamp);
    if (!known_) return;
    while (const dirent* const entry = ::readdir(open.get()))
        names_.insert(UpperCase(ToDriveName(entry->d_name)));
}

bool FolderNames::Lacks(const std::string& folder, const std::string& shownName) {
    const bool again = folder == folder_ && Recent(asked_);
    asked_ = Clock::now();
    if (!again) {
        folder_ = folder;
        known_ = false;
        return false;
    }
    const Stamp stamp = StampOf(folder_);
    if (!known_ || stamp != stamp_ || !Recent(read_)) Read(stamp);
    return known_ && !names_.contains(UpperCase(shownName));
}

void FolderNames::Forget() {
    folder_.clear();
    known_ = false;
}

void FolderNames::Made(const std::string& path) {
    if (HostFolderOf(path) != folder_) return;
    names_.insert(UpperCase(ToDriveName(path.substr(path.rfind('/') + 1))));
    made_ = StampOf(folder_);
    stamp_ = made_;
}

}  // namespace tavrix
