// An animation of 640 by 480 pixels against the GIF library alone, which reads the rows of all its images and throws
// them away. Both sides run in turns in one iteration; the counters are medians in frames a second, and their ratio in
// time. Once with frames that cover the canvas, once with parts that restore what was there.

#include <benchmark/benchmark.h>
#include <gif_lib.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

#include "backends/linux/FileSource.h"
#include "common/Measure.h"
#include "imaging/codecs/GifAnimation.h"

namespace tavrix::bench {
namespace {

constexpr int Width = 640;
constexpr int Height = 480;
constexpr int Frames = 60;

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// A file of its own, with frames as noisy as a dithered film; removed at the end.
class AnimatedFile {
  public:
    explicit AnimatedFile(bool parts) {
        std::string name = (std::filesystem::temp_directory_path() / "animation.XXXXXX").string();
        const int descriptor = mkstemp(name.data());
        if (descriptor < 0) throw std::runtime_error("no temporary file");
        path_ = name;
        int error = 0;
        GifFileType* file = EGifOpenFileHandle(descriptor, &error);
        const std::unique_ptr<ColorMapObject, void (*)(ColorMapObject*)> colours(
            GifMakeMapObject(256, nullptr), GifFreeMapObject);
        for (int i = 0; i < 256; ++i) {
            const auto grey = static_cast<GifByteType>(i);
            colours->Colors[i] = {grey, grey, grey};
        }
        EGifSetGifVersion(file, true);
        EGifPutScreenDesc(file, Width, Height, 8, 0, colours.get());
        for (int i = 0; i < Frames; ++i)
            PutFrame(file, parts && i != 0, i);
        EGifCloseFile(file, &error);
    }
    ~AnimatedFile() { std::filesystem::remove(path_); }
    AnimatedFile(const AnimatedFile&) = delete;
    AnimatedFile& operator=(const AnimatedFile&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }

  private:
    static void PutFrame(GifFileType* file, bool part, int index) {
        const GraphicsControlBlock control{part ? DISPOSE_PREVIOUS : DISPOSE_DO_NOT, false, 4,
                                           part ? 0 : NO_TRANSPARENT_COLOR};
        GifByteType block[4];
        EGifGCBToExtension(&control, block);
        EGifPutExtension(file, GRAPHICS_EXT_FUNC_CODE, 4, block);
        const int width = part ? Width / 2 : Width;
        const int height = part ? Height / 2 : Height;
        EGifPutImageDesc(file, part ? index : 0, part ? index : 0, width, height, false, nullptr);
        std::vector<GifPixelType> row(static_cast<std::size_t>(width));
        unsigned noise = static_cast<unsigned>(index) + 1;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                noise = noise * 1103515245U + 12345U;
                row[static_cast<std::size_t>(x)] =
                    static_cast<GifPixelType>((x / 3 + y / 3 + index) % 240 + static_cast<int>(noise >> 30U));
            }
            EGifPutLine(file, row.data(), width);
        }
    }

    std::string path_;
};

void LibraryAlone(const std::string& path) {
    int error = 0;
    GifFileType* file = DGifOpenFileName(path.c_str(), &error);
    if (file == nullptr) throw std::runtime_error("not opened");
    std::vector<GifPixelType> row(Width);
    GifRecordType type = UNDEFINED_RECORD_TYPE;
    while (DGifGetRecordType(file, &type) == GIF_OK && type != TERMINATE_RECORD_TYPE) {
        if (type == IMAGE_DESC_RECORD_TYPE) {
            DGifGetImageDesc(file);
            for (int y = 0; y < file->Image.Height; ++y)
                DGifGetLine(file, row.data(), file->Image.Width);
            benchmark::DoNotOptimize(row.data());
        } else {
            int kind = 0;
            GifByteType* block = nullptr;
            DGifGetExtension(file, &kind, &block);
            while (block != nullptr)
                DGifGetExtensionNext(file, &block);
        }
    }
    DGifCloseFile(file, &error);
}

void Ours(const std::string& path) {
    const OpenedAnimation opened = OpenGifAnimation(std::make_unique<FileSource>(path));
    if (opened.error) throw std::runtime_error("not opened");
    int frames = 1;
    while (opened.animation->Next())
        ++frames;
    if (frames != Frames) throw std::runtime_error("frames are missing");
}

void AgainstLibrary(benchmark::State& state, bool parts) {
    const AnimatedFile file(parts);
    std::vector<double> alone, ours;
    for (auto _ : state) {
        alone.push_back(Seconds([&] { LibraryAlone(file.Path()); }));
        ours.push_back(Seconds([&] { Ours(file.Path()); }));
        state.SetIterationTime(ours.back());
    }
    state.counters["library_fps"] = Frames / Median(alone);
    state.counters["ours_fps"] = Frames / Median(ours);
    state.counters["ratio"] = Median(ours) / Median(alone);
}

void AnimationWhole(benchmark::State& state) {
    AgainstLibrary(state, false);
}
void AnimationParts(benchmark::State& state) {
    AgainstLibrary(state, true);
}

BENCHMARK(AnimationWhole)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(AnimationParts)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);

}  // namespace
}  // namespace tavrix::bench
