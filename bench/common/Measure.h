#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

namespace tavrix::bench {

/// How long a piece of work takes, by the clock.
inline double Milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// The value in the middle; of an even number the upper one. There is at least one.
inline double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

}  // namespace tavrix::bench
