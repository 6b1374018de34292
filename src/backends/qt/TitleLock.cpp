#include "backends/qt/TitleLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>

namespace tavrix::qt {

namespace {

/// Empty: there is no runtime folder.
std::string PathOf(const std::string& title) {
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    if (folder == nullptr || *folder != '/') return {};
    constexpr char Digits[] = "0123456789abcdef";
    std::string path = std::string(folder) + "/tavrix-window-";
    constexpr std::size_t Longest = 100;  // a file name holds 255 bytes
    for (const char c : title.substr(0, Longest)) {
        const auto byte = static_cast<unsigned char>(c);
        path += Digits[byte >> 4U];
        path += Digits[byte & 0xFU];
    }
    return path;
}

}  // namespace

TitleLock::TitleLock(const std::string& title) : path_(PathOf(title)) {
    if (path_.empty()) return;
    file_ = open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file_ >= 0) flock(file_, LOCK_SH | LOCK_NB);
}

TitleLock::~TitleLock() {
    if (file_ < 0) return;
    // The last one to go removes the file.
    if (flock(file_, LOCK_EX | LOCK_NB) == 0) unlink(path_.c_str());
    close(file_);
}

bool TitleLock::IsHeld(const std::string& title) {
    const std::string path = PathOf(title);
    if (path.empty()) return false;
    const int file = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
    if (file < 0) return false;
    const bool held = flock(file, LOCK_EX | LOCK_NB) != 0;
    close(file);
    return held;
}

}  // namespace tavrix::qt
