#include "system_faults/SystemFaults.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <utility>

namespace tavrix::test {
namespace {

// The functions of the system know of no object that could be handed to them.
std::atomic<SystemFaults*> plan{nullptr};

std::string PathOf(int file) {
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    return length > 0 ? std::string(path.data(), static_cast<std::size_t>(length)) : std::string();
}

/// Whether a call is one that fails; errno says how.
bool Fails(std::string_view call, const std::string& path, bool makesFile = false) {
    SystemFaults* const faults = plan.load();
    const int error = faults != nullptr ? faults->ErrorOf(call, path, makesFile) : 0;
    if (error != 0) errno = error;
    return error != 0;
}

bool Fails(std::string_view call, int file) {
    return plan.load() != nullptr && Fails(call, PathOf(file));
}

/// Whether a file may become as long as that.
bool TooLong(int file, off_t length) {
    SystemFaults* const faults = plan.load();
    if (faults == nullptr || !faults->Longest() || static_cast<std::size_t>(length) <= *faults->Longest())
        return false;
    if (!Fails("full disk", file)) return false;
    errno = ENOSPC;
    return true;
}

template <class Function>
Function* System(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

SystemFaults::SystemFaults(std::string folder) : folder_(std::move(folder)) {
    plan = this;
}

SystemFaults::~SystemFaults() {
    plan = nullptr;
}

void SystemFaults::FailNth(int nth, int error) {
    nth_ = calls_ + nth;
    error_ = error;
}

void SystemFaults::FailAlways(std::string_view call, int error) {
    always_ = call;
    alwaysError_ = error;
}

int SystemFaults::ErrorOf(std::string_view call, std::string_view path, bool makesFile) {
    if (!path.starts_with(folder_)) return 0;
    if (call == "full disk") {
        fired_ = true;
        return ENOSPC;
    }
    if (makesFile && forbidden_) return EACCES;
    const int number = ++calls_;
    if (watch_) watch_(call);
    const bool always = call == always_;
    if (number != nth_ && !always) return 0;
    failed_ = call;
    fired_ = true;
    return always ? alwaysError_ : error_;
}

}  // namespace tavrix::test

// What the modules of this program call, since a definition in the program goes before one in a library.
extern "C" {

using tavrix::test::Fails;
using tavrix::test::plan;
using tavrix::test::System;
using tavrix::test::SystemFaults;
using tavrix::test::TooLong;

int open(const char* path, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE) {
        va_list arguments;
        va_start(arguments, flags);
        mode = va_arg(arguments, mode_t);
        va_end(arguments);
    }
    const bool makes =
        (flags & O_TMPFILE) == O_TMPFILE || ((flags & O_CREAT) != 0 && ::access(path, F_OK) != 0);
    if (Fails("open", std::string(path), makes)) return -1;
    static auto* const real = System<int(const char*, int, ...)>("open");
    return real(path, flags, mode);
}

ssize_t read(int file, void* into, size_t count) {
    if (Fails("read", file)) return -1;
    static auto* const real = System<ssize_t(int, void*, size_t)>("read");
    return real(file, into, count);
}

ssize_t pread(int file, void* into, size_t count, off_t offset) {
    if (Fails("pread", file)) return -1;
    static auto* const real = System<ssize_t(int, void*, size_t, off_t)>("pread");
    return real(file, into, count, offset);
}

ssize_t write(int file, const void* from, size_t count) {
    if (Fails("write", file)) return -1;
    if (TooLong(file, ::lseek(file, 0, SEEK_CUR) + static_cast<off_t>(count))) return -1;
    static auto* const real = System<ssize_t(int, const void*, size_t)>("write");
    return real(file, from, count);
}

ssize_t pwrite(int file, const void* from, size_t count, off_t offset) {
    if (Fails("pwrite", file)) return -1;
    if (TooLong(file, offset + static_cast<off_t>(count))) return -1;
    static auto* const real = System<ssize_t(int, const void*, size_t, off_t)>("pwrite");
    return real(file, from, count, offset);
}

ssize_t copy_file_range(int from, off64_t* fromOffset, int to, off64_t* toOffset, size_t count,
                        unsigned flags) {
    if (Fails("copy_file_range", to)) return -1;
    SystemFaults* const faults = plan.load();
    if (faults != nullptr && faults->Longest()) {
        errno = EXDEV;  // to have it written piece by piece, where the length is seen
        return -1;
    }
    static auto* const real =
        System<ssize_t(int, off64_t*, int, off64_t*, size_t, unsigned)>("copy_file_range");
    return real(from, fromOffset, to, toOffset, count, flags);
}

int fsync(int file) {
    if (Fails("fsync", file)) return -1;
    static auto* const real = System<int(int)>("fsync");
    return real(file);
}

int ftruncate(int file, off_t length) noexcept {
    if (Fails("ftruncate", file)) return -1;
    static auto* const real = System<int(int, off_t)>("ftruncate");
    return real(file, length);
}

int posix_fallocate(int file, off_t offset, off_t length) {
    if (Fails("posix_fallocate", file) || TooLong(file, offset + length)) return errno;
    static auto* const real = System<int(int, off_t, off_t)>("posix_fallocate");
    return real(file, offset, length);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    if (Fails("linkat", std::string(to))) return -1;
    static auto* const real = System<int(int, const char*, int, const char*, int)>("linkat");
    return real(fromFolder, from, toFolder, to, flags);
}

int rename(const char* from, const char* to) noexcept {
    if (Fails("rename", std::string(to))) return -1;
    static auto* const real = System<int(const char*, const char*)>("rename");
    return real(from, to);
}

int unlink(const char* path) noexcept {
    if (Fails("unlink", std::string(path))) return -1;
    static auto* const real = System<int(const char*)>("unlink");
    return real(path);
}

DIR* opendir(const char* path) {
    if (Fails("opendir", std::string(path))) return nullptr;
    static auto* const real = System<DIR*(const char*)>("opendir");
    return real(path);
}

}  // extern "C"
