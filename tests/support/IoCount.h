#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace tavrix {

/// What this process has read and written so far, in bytes, from wherever it came.
struct IoCount {
    std::uint64_t read = 0;
    std::uint64_t written = 0;

    static IoCount Now() {
        IoCount count;
        std::ifstream file("/proc/self/io");
        std::string name;
        for (std::uint64_t value = 0; file >> name >> value;) {
            if (name == "rchar:") count.read = value;
            if (name == "wchar:") count.written = value;
        }
        return count;
    }
    /// Whether the system counts.
    [[nodiscard]] bool Known() const { return read > 0; }

    friend IoCount operator-(const IoCount& now, const IoCount& before) {
        return {now.read - before.read, now.written - before.written};
    }
};

}  // namespace tavrix
