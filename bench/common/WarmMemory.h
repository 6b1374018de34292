#pragma once

#include <sys/mman.h>

#include <cstddef>

namespace tavrix::bench {

/// Uses so many bytes of memory for a moment. A virtual machine gives memory that nobody has used for some seconds back to
/// its host, and has to ask for it again page by page: ten times the work of a large edit, for whoever comes first. After
/// this the system has as much at hand as it would after any program that has just ended.
inline void WarmMemory(std::size_t bytes) {
    void* memory =
        ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
    if (memory != MAP_FAILED) ::munmap(memory, bytes);
}

}  // namespace tavrix::bench
