#include "imaging/graphics/Bands.h"

#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

namespace tavrix {
namespace {

/// What a thread of its own is worth: it costs some ten microseconds, and the pixels about a millisecond.
constexpr std::int64_t PixelsAThread = std::int64_t{1} << 20U;
/// More threads wait for the same memory.
constexpr std::int64_t MostThreads = 4;

}  // namespace

void InBands(int rows, std::int64_t pixels, const std::function<void(int first, int end)>& work) {
    const std::int64_t worth = std::min(MostThreads, pixels / PixelsAThread);
    // The system looks for its cores each time it is asked; 0 where nobody knows.
    const std::int64_t cores = worth > 1 ? std::thread::hardware_concurrency() : 1;
    const std::int64_t bands = std::clamp<std::int64_t>(std::min(cores, worth), 1, std::max(rows, 1));
    const auto edge = [&](std::int64_t band) { return static_cast<int>(band * rows / bands); };
    std::vector<std::jthread> threads;
    threads.reserve(static_cast<std::size_t>(bands));
    for (std::int64_t band = 1; band < bands; ++band) {
        const int first = edge(band);
        const int end = edge(band + 1);
        try {
            threads.emplace_back([&work, first, end] { work(first, end); });
        } catch (const std::system_error&) {
            work(first, end);
        }
    }
    work(0, edge(1));
}

}  // namespace tavrix
