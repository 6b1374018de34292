// The pixel work of the edits on 24 megapixels, against the copying of as much memory and, for an angle that is no
// quarter turn, against a plain nearest-neighbour rotation. All sides run in turns in one iteration over memory that
// has been touched before; the counters are the medians in milliseconds and their ratios.

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <span>
#include <vector>

#include "PlainRotation.h"
#include "common/Measure.h"
#include "editing/turning/RotatePicture.h"
#include "imaging/codecs/BmpWriter.h"
#include "imaging/graphics/StretchCopy.h"
#include "imaging/graphics/Surface.h"

namespace tavrix::bench {
namespace {

constexpr int Width = 6000;
constexpr int Height = 4000;
constexpr auto Quarter = static_cast<float>(3.14159265359 / 2);
constexpr float Half = 3.1415927F;

/// Of the processor, by all threads of this process, so that other work on the machine counts as little as can be.
double ProcessorMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double ProcessorMilliseconds(const std::function<void()>& work) {
    const double start = ProcessorMilliseconds();
    work();
    return ProcessorMilliseconds() - start;
}

Surface Picture() {
    Surface surface(Width, Height);
    Pixel number = 0;
    for (Pixel& pixel : surface.Pixels())
        pixel = 0xFF000000U | (number++ * 2654435761U >> 8U);
    return surface;
}

Surface Touched(int width, int height) {
    Surface surface(width, height);
    surface.Fill(0xFFFFFFFFU);
    return surface;
}

using Transform = std::function<void(const Surface& source, Surface& dest)>;

/// Runs a transform in turns with the copying of the memory, and with `plain` where there is one.
void AgainstCopy(benchmark::State& state, int width, int height, const Transform& transform,
                 const Transform& plain = nullptr) {
    const Surface source = Picture();
    Surface copied = Touched(Width, Height);
    Surface dest = Touched(width, height);
    std::vector<double> copy, ours, theirs;
    for (auto _ : state) {
        copy.push_back(ProcessorMilliseconds([&] {
            std::memcpy(copied.Pixels().data(), source.Pixels().data(), source.Pixels().size_bytes());
            benchmark::ClobberMemory();
        }));
        if (plain) theirs.push_back(ProcessorMilliseconds([&] { plain(source, dest); }));
        ours.push_back(ProcessorMilliseconds([&] { transform(source, dest); }));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["copy_ms"] = Median(copy);
    state.counters["ours_ms"] = Median(ours);
    state.counters["ratio"] = Median(ours) / Median(copy);
    if (!plain) return;
    state.counters["plain_ms"] = Median(theirs);
    state.counters["ratio_plain"] = Median(ours) / Median(theirs);
}

Transform Rotation(float angle) {
    return [angle](const Surface& source, Surface& dest) {
        const RotateGeometry centres{source.Width() / 2, source.Height() / 2, dest.Width() / 2,
                                     dest.Height() / 2};
        RotatePicture(source, dest, angle, centres, [](int) {});
    };
}

Transform Stretch(const PixelRect& to) {
    return [to](const Surface& source, Surface& dest) {
        StretchCopy(dest, to, source, {0, 0, source.Width(), source.Height()});
    };
}

void QuarterCounterClockwise(benchmark::State& state) {
    AgainstCopy(state, Height, Width, Rotation(Quarter));
}
void QuarterClockwise(benchmark::State& state) {
    AgainstCopy(state, Height, Width, Rotation(-Quarter));
}
void HalfTurn(benchmark::State& state) {
    AgainstCopy(state, Width, Height, Rotation(Half));
}
/// Into the same size, and into the box of the turned picture.
void AnyAngle(benchmark::State& state) {
    const double angle = static_cast<double>(state.range(0)) * 3.14159265359 / 180;
    const bool box = state.range(1) != 0;
    AgainstCopy(state, box ? 7212 : Width, box ? 6624 : Height, Rotation(static_cast<float>(angle)),
                [angle](const Surface& source, Surface& dest) { PlainRotation(source, dest, angle); });
}
void FlipHorizontally(benchmark::State& state) {
    AgainstCopy(state, Width, Height, Stretch({Width, 0, -Width, Height}));
}
void FlipVertically(benchmark::State& state) {
    AgainstCopy(state, Width, Height, Stretch({0, Height, Width, -Height}));
}
void Resize(benchmark::State& state) {
    const int width = static_cast<int>(Width * state.range(0) / 100);
    const int height = static_cast<int>(Height * state.range(0) / 100);
    AgainstCopy(state, width, height, Stretch({0, 0, width, height}));
}

void WriteBitmap(benchmark::State& state) {
    std::vector<std::byte> file(std::size_t{3} * Width * Height + 1024);
    AgainstCopy(state, 1, 1, [&file](const Surface& source, Surface& /*dest*/) {
        std::size_t at = 0;
        WriteBmp(source, [&](std::span<const std::byte> piece) {
            std::ranges::copy(piece, file.begin() + static_cast<std::ptrdiff_t>(at));
            at += piece.size();
        });
        benchmark::DoNotOptimize(file.data());
    });
}

BENCHMARK(QuarterCounterClockwise)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(QuarterClockwise)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(HalfTurn)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(AnyAngle)
    ->ArgNames({"degrees", "box"})
    ->ArgsProduct({{1, 33, 45, -120}, {0}})
    ->Args({33, 1})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(7);
BENCHMARK(FlipHorizontally)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(FlipVertically)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(Resize)
    ->ArgName("percent")
    ->Arg(50)
    ->Arg(75)
    ->Arg(125)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(9);
BENCHMARK(WriteBitmap)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);

}  // namespace
}  // namespace tavrix::bench
