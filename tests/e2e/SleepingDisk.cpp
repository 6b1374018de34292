// Loaded before the system's library: a disk that sleeps. Folders named "asleep" are not opened as long as the file is
// there that TAVRIX_TEST_SLEEP names.

#include <dirent.h>
#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

extern "C" DIR* opendir(const char* path) {
    using Open = DIR* (*)(const char*);
    static const auto open = reinterpret_cast<Open>(::dlsym(RTLD_NEXT, "opendir"));
    constexpr useconds_t aWhile = 10'000;
    const char* const sleeps = std::getenv("TAVRIX_TEST_SLEEP");
    if (sleeps != nullptr && std::string_view(path).ends_with("/asleep")) {
        while (::access(sleeps, F_OK) == 0)
            ::usleep(aWhile);
    }
    return open(path);
}
