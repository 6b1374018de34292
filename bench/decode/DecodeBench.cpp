// Decoding of 24 megapixels against the least that any program needs for it: the JPEG library alone, with its rows
// thrown away or kept in memory of their own, and the reading of a bitmap file. Both sides run in turns in one
// iteration; the counters are the medians in milliseconds and their ratios.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

#include <jpeglib.h>

#include "TestPictures.h"
#include "backends/linux/FileSource.h"
#include "common/Measure.h"
#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/PictureLoader.h"

namespace tavrix::bench {
namespace {

const TestPictures& Pictures() {
    static const TestPictures pictures;
    return pictures;
}

/// Zeroed memory of the size of the decoded picture, as a surface has it.
class PictureMemory {
  public:
    PictureMemory()
        : start_(mmap(nullptr, Size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
        if (start_ == MAP_FAILED) throw std::bad_alloc();
        madvise(start_, Size, MADV_HUGEPAGE);
    }
    ~PictureMemory() { munmap(start_, Size); }
    PictureMemory(const PictureMemory&) = delete;
    PictureMemory& operator=(const PictureMemory&) = delete;

    [[nodiscard]] unsigned char* Row(unsigned y) const {
        return static_cast<unsigned char*>(start_) + std::size_t{4} * TestPictures::Width * y;
    }

  private:
    static constexpr std::size_t Size = std::size_t{4} * TestPictures::Width * TestPictures::Height;
    void* start_;
};

/// The library with its own file reader. Without memory to keep them in, the rows fall upon each other.
void LibraryAlone(const std::string& path, const PictureMemory* keep) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    jpeg_decompress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_stdio_src(&info, file.get());
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_EXT_BGRA;
    jpeg_start_decompress(&info);
    std::vector<unsigned char> row(std::size_t{4} * info.output_width);
    while (info.output_scanline < info.output_height) {
        JSAMPROW into = keep != nullptr ? keep->Row(info.output_scanline) : row.data();
        jpeg_read_scanlines(&info, &into, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
}

void Ours(const std::string& path) {
    FileSource source(path);
    const DecodedPicture decoded = DecodePicture(source);
    if (decoded.status.outcome != Outcome::Complete) throw std::runtime_error("not decoded");
}

void JpegAgainstLibrary(benchmark::State& state, const std::string& path) {
    std::vector<double> thrownAway, kept, ours;
    for (auto _ : state) {
        thrownAway.push_back(Milliseconds([&] { LibraryAlone(path, nullptr); }));
        kept.push_back(Milliseconds([&] {
            const PictureMemory memory;
            LibraryAlone(path, &memory);
        }));
        ours.push_back(Milliseconds([&] { Ours(path); }));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["library_ms"] = Median(thrownAway);
    state.counters["library_kept_ms"] = Median(kept);
    state.counters["ours_ms"] = Median(ours);
    state.counters["ratio"] = Median(ours) / Median(thrownAway);
    state.counters["ratio_kept"] = Median(ours) / Median(kept);
}

void Jpeg(benchmark::State& state) {
    JpegAgainstLibrary(state, Pictures().Jpeg());
}
void JpegProgressive(benchmark::State& state) {
    JpegAgainstLibrary(state, Pictures().Progressive());
}
void JpegTurned(benchmark::State& state) {
    JpegAgainstLibrary(state, Pictures().Turned());
}

/// The file in pieces, thrown away or kept in memory as large as the file.
void ReadFile(const std::string& path, bool keep) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    constexpr std::size_t Piece = 512U << 10U;
    const auto size = static_cast<std::size_t>(lseek(file, 0, SEEK_END));
    const auto memory = std::make_unique_for_overwrite<char[]>(keep ? size + Piece : Piece);
    std::size_t at = 0;
    for (ssize_t got = 1; got > 0; at += static_cast<std::size_t>(got)) {
        got = pread(file, memory.get() + (keep ? at : 0), Piece, static_cast<off_t>(at));
        benchmark::DoNotOptimize(memory.get());
    }
    close(file);
}

void Bitmap24(benchmark::State& state) {
    const std::string path = Pictures().Bitmap();
    std::vector<double> reading, readingKept, ours;
    for (auto _ : state) {
        reading.push_back(Milliseconds([&] { ReadFile(path, false); }));
        readingKept.push_back(Milliseconds([&] { ReadFile(path, true); }));
        ours.push_back(Milliseconds([&] { Ours(path); }));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["reading_ms"] = Median(reading);
    state.counters["reading_kept_ms"] = Median(readingKept);
    state.counters["ours_ms"] = Median(ours);
    state.counters["ratio"] = Median(ours) / Median(reading);
    state.counters["ratio_kept"] = Median(ours) / Median(readingKept);
}

/// From the call of Load to its return (the first rows stand), and to the last row.
void LoaderFirstRows(benchmark::State& state) {
    const std::string path = Pictures().Jpeg();
    std::vector<double> first, all;
    for (auto _ : state) {
        PictureLoader loader(OpenFileSource);
        Picture picture;
        first.push_back(Milliseconds([&] { picture = loader.Load(path); }));
        all.push_back(first.back() + Milliseconds([&] { static_cast<void>(picture.pixels->Whole()); }));
        state.SetIterationTime(all.back() / 1000);
    }
    state.counters["first_ms"] = Median(first);
    state.counters["all_ms"] = Median(all);
}

BENCHMARK(Jpeg)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(JpegProgressive)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(JpegTurned)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(Bitmap24)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(25);
BENCHMARK(LoaderFirstRows)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace tavrix::bench
