#include "imaging/graphics/Bands.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/sysinfo.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <mutex>
#include <set>
#include <thread>
#include <utility>
#include <vector>

#include "imaging/graphics/StretchCopy.h"
#include "imaging/graphics/Surface.h"

namespace {

// The functions of the system know of no object that could be handed to them.
std::atomic<bool> noThreads{false};
constexpr int AsManyAsThereAre = -1;
std::atomic<int> cores{AsManyAsThereAre};

}  // namespace

/// As it is, but on demand the system has no thread to give.
extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*),
                              void* argument) noexcept {
    if (noThreads) return EAGAIN;
    using Function = int(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static auto* const system = reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, "pthread_create"));
    return system(thread, attributes, start, argument);
}

/// As it is, or of another machine.
extern "C" int get_nprocs() noexcept {
    if (cores != AsManyAsThereAre) return cores;
    static auto* const system = reinterpret_cast<int (*)()>(::dlsym(RTLD_NEXT, "get_nprocs"));
    return system();
}

namespace tavrix {
namespace {

/// A machine with so many cores; 0 where nobody knows.
struct Cores {
    explicit Cores(int count) { cores = count; }
    Cores(const Cores&) = delete;
    Cores& operator=(const Cores&) = delete;
    ~Cores() { cores = AsManyAsThereAre; }
};

constexpr std::int64_t Large = std::int64_t{64}
                               << 20U;  ///< pixels that are worth as many threads as there may be

struct Bands {
    std::vector<int> times;               ///< that each row was worked on
    std::vector<std::pair<int, int>> of;  ///< first row and end of each, in their order
    std::set<std::thread::id> threads;
};

Bands Of(int rows, std::int64_t pixels) {
    std::mutex mutex;
    Bands bands;
    bands.times.resize(static_cast<std::size_t>(std::max(rows, 0)));
    InBands(rows, pixels, [&](int first, int end) {
        // Who does not wait for its threads is seen by that.
        if (first > 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        const std::scoped_lock lock(mutex);
        for (int row = first; row < end; ++row)
            ++bands.times.at(static_cast<std::size_t>(row));
        bands.of.emplace_back(first, end);
        bands.threads.insert(std::this_thread::get_id());
    });
    std::ranges::sort(bands.of);
    return bands;
}

TEST(Bands, EachRowIsInOne) {
    const Cores four(4);
    for (const int rows : {1, 2, 3, 4, 5, 7, 1000, 4001}) {
        const Bands bands = Of(rows, Large);
        EXPECT_TRUE(std::ranges::all_of(bands.times, [](int times) { return times == 1; })) << rows;
        int end = 0;
        for (const auto& band : bands.of) {
            EXPECT_EQ(band.first, end) << rows;
            EXPECT_LT(band.first, band.second) << rows;
            end = band.second;
        }
        EXPECT_EQ(end, rows);
    }
}

TEST(Bands, OfNoRowsNothingIsDone) {
    for (const auto& band : Of(0, Large).of)
        EXPECT_EQ(band.first, band.second);
}

TEST(Bands, ASmallPictureIsDoneByWhoAsks) {
    const Cores four(4);
    for (const std::int64_t pixels : {std::int64_t{0}, std::int64_t{1}, (std::int64_t{2} << 20U) - 1}) {
        const Bands bands = Of(1000, pixels);
        EXPECT_EQ(bands.of, (std::vector<std::pair<int, int>>{{0, 1000}})) << pixels;
        EXPECT_EQ(bands.threads, std::set{std::this_thread::get_id()}) << pixels;
    }
}

TEST(Bands, ALargeOneIsDoneByAThreadForEachCoreUpToFour) {
    for (const auto& [count, most] : {std::pair(0, 1), {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 4}, {64, 4}}) {
        const Cores machine(count);
        const Bands bands = Of(4001, Large);
        EXPECT_EQ(bands.of.size(), static_cast<std::size_t>(most)) << count;
        EXPECT_EQ(bands.threads.size(), bands.of.size()) << count;
        EXPECT_TRUE(bands.threads.contains(std::this_thread::get_id())) << count;
        for (const auto& [first, end] : bands.of) {
            EXPECT_GE(end - first, 4001 / most) << count;
            EXPECT_LE(end - first, 4001 / most + 1) << count;
        }
    }
}

TEST(Bands, AThreadIsWorthAMegapixel) {
    const Cores four(4);
    for (const std::int64_t megapixels : {2, 3, 4}) {
        const auto bands = static_cast<std::size_t>(megapixels);
        EXPECT_EQ(Of(4001, megapixels << 20U).of.size(), bands);
        EXPECT_EQ(Of(4001, (megapixels << 20U) - 1).of.size(), bands - 1);
    }
}

TEST(Bands, ManyRowsAreNoMoreThanANumberHolds) {
    const Cores four(4);
    constexpr int Rows = 2'000'000'001;
    std::mutex mutex;
    std::vector<std::pair<int, int>> bands;
    InBands(Rows, Large, [&](int first, int end) {
        const std::scoped_lock lock(mutex);
        bands.emplace_back(first, end);
    });
    std::ranges::sort(bands);
    int at = 0;
    for (const auto& [first, end] : bands) {
        EXPECT_EQ(first, at);
        at = end;
    }
    EXPECT_EQ(at, Rows);
}

TEST(Bands, WithoutThreadsAllIsDoneAllTheSame) {
    const Cores four(4);
    noThreads = true;
    const Bands bands = Of(4001, Large);
    noThreads = false;
    EXPECT_TRUE(std::ranges::all_of(bands.times, [](int times) { return times == 1; }));
    EXPECT_EQ(bands.threads, std::set{std::this_thread::get_id()});
}

TEST(Bands, ACopyTakesNoRowFromTheBandBefore) {
    const Cores four(4);
    Surface source(1, 3);
    for (int y = 0; y < 3; ++y)
        source.Row(y).front() = 0xFF000010U + static_cast<Pixel>(y);
    Surface copy(1024, 4096);
    noThreads = true;  // the first band comes last then
    StretchCopy(copy, {0, 0, 1024, 4096}, source, {0, 0, 1, 3});
    noThreads = false;
    for (int y = 0; y < copy.Height(); ++y) {
        const Pixel expected = source.Row(y * 3 / copy.Height()).front();
        ASSERT_TRUE(std::ranges::all_of(copy.Row(y), [&](Pixel pixel) { return pixel == expected; })) << y;
    }
}

TEST(Bands, ALargeSurfaceIsFilledWhole) {
    const Cores four(4);
    Surface surface(2053, 2051);
    surface.Fill(0xFF123456);
    EXPECT_TRUE(std::ranges::all_of(surface.Pixels(), [](Pixel pixel) { return pixel == 0xFF123456; }));
}

}  // namespace
}  // namespace tavrix
