#pragma once

#include <sys/resource.h>

#include <cstddef>
#include <fstream>

namespace tavrix::test {

/// Leaves the process only so much more memory for as long as it lives. The sanitizers need the address space
/// themselves: under them there is no limit, and Works() says so.
class MemoryLimit {
  public:
    explicit MemoryLimit(std::size_t moreBytes) {
        if (!Works()) return;
        getrlimit(RLIMIT_AS, &former_);
        std::size_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        constexpr std::size_t PageBytes = 4096;
        const rlimit limit{pages * PageBytes + moreBytes, former_.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
    }
    ~MemoryLimit() {
        if (Works()) setrlimit(RLIMIT_AS, &former_);
    }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

    [[nodiscard]] static constexpr bool Works() {
#ifdef __SANITIZE_ADDRESS__
        return false;
#else
        return true;
#endif
    }

  private:
    rlimit former_{};
};

}  // namespace tavrix::test
