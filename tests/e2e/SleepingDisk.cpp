// Loaded before the system's library: a disk that sleeps. Folders named "asleep" are not opened as long as the file is
// there that TAVRIX_TEST_SLEEP names, and of files named "...asleep.*" only the first thread can read.

#include <dirent.h>
#include <dlfcn.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void Sleep() {
    const char* const sleeps = std::getenv("TAVRIX_TEST_SLEEP");
    constexpr useconds_t aWhile = 10'000;
    while (sleeps != nullptr && ::access(sleeps, F_OK) == 0)
        ::usleep(aWhile);
}

bool IsAsleep(int file) {
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    return length > 0 &&
           std::string_view(path.data(), std::size_t(length)).find("asleep.") != std::string_view::npos;
}

}  // namespace

extern "C" DIR* opendir(const char* path) {
    using Open = DIR* (*)(const char*);
    static const auto open = reinterpret_cast<Open>(::dlsym(RTLD_NEXT, "opendir"));
    if (std::string_view(path).ends_with("/asleep")) Sleep();
    return open(path);
}

extern "C" ssize_t pread(int file, void* into, size_t count, off_t offset) {
    using Read = ssize_t (*)(int, void*, size_t, off_t);
    static const auto read = reinterpret_cast<Read>(::dlsym(RTLD_NEXT, "pread"));
    if (::gettid() != ::getpid() && IsAsleep(file)) Sleep();
    return read(file, into, count, offset);
}
