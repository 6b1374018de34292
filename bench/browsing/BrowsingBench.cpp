// A page of nine JPEG photos of 24 megapixels in the thumbnail browser, on a window that is not seen, against the JPEG
// library's own decode of the same files at an eighth, with its rows thrown away. Both sides run in turns in one
// iteration; the counters are the medians in milliseconds, their ratio, and how much memory the window
// with its first page took at most, in MiB; a whole picture has 92.

#include <benchmark/benchmark.h>
#include <jpeglib.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "TestPictures.h"
#include "backends/headless/HeadlessServices.h"
#include "backends/linux/FileSource.h"
#include "backends/qt/QtProcess.h"
#include "backends/qt/QtToolkit.h"
#include "browsing/frmThumbnail.h"
#include "common/Measure.h"
#include "core/Main.h"
#include "imaging/loading/PictureLoader.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::bench {
namespace {

constexpr int PageFiles = 9;

void LibraryAlone(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    jpeg_decompress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_stdio_src(&info, file.get());
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_EXT_BGRA;
    info.scale_num = 1;
    info.scale_denom = 8;
    jpeg_start_decompress(&info);
    std::vector<unsigned char> row(std::size_t{4} * info.output_width);
    JSAMPROW into = row.data();
    while (info.output_scanline < info.output_height)
        jpeg_read_scanlines(&info, &into, 1);
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
}

/// The pictures of real files, by their host paths.
class FilePictures final : public Pictures {
  public:
    [[nodiscard]] Picture Load(const std::string& path) override { return loader_.Load(path); }
    [[nodiscard]] Picture LoadInBackground(const std::string& path) override {
        return loader_.LoadInBackground(path);
    }
    [[nodiscard]] std::unique_ptr<PictureToFit> LoadToFit(const std::string& path,
                                                          const FitBox& box) override {
        return loader_.LoadToFit(path, box);
    }
    void Expect(const std::string&) override {}
    [[nodiscard]] std::unique_ptr<Animation> OpenAnimation(const std::string&) override { return nullptr; }
    void SaveBitmap(const Surface&, const std::string&) override {}

  private:
    PictureLoader loader_{OpenFileSource};
};

/// Mebibytes of memory that a piece of work took at most above what there was before.
double MebibytesAtMost(const std::function<void()>& work) {
    const auto figure = [](const std::string& wanted) {
        std::ifstream status("/proc/self/status");
        for (std::string name; status >> name;) {
            double kibibytes = 0;
            if (name == wanted && status >> kibibytes) return kibibytes / 1024;
        }
        return 0.0;
    };
    std::ofstream("/proc/self/clear_refs") << 5;  // the high-water mark begins here
    const double before = figure("VmRSS:");
    work();
    return figure("VmHWM:") - before;
}

void Page(benchmark::State& state) {
    const TestPictures photos;
    headless::HeadlessServices machine;
    FilePictures pictures;
    const Services services{machine.files,   machine.drives,      machine.profile, machine.registry,
                            machine.store,   machine.shell,       pictures,        machine.clipboard,
                            machine.sound,   machine.help,        machine.system,  machine.process,
                            machine.viewLib, machine.wakefulness, machine.desktop, machine.saverPassword};
    qt::QtToolkit toolkit([](const std::string& path) { return path; });
    forms::Application app(toolkit);
    MainModule module(app, services);
    const Lives lives;
    auto& view = app.Load<MainViewFrm>(module, lives);
    ThumbnailList list;
    for (int i = 0; i < PageFiles; ++i) {
        const std::string copy = photos.Jpeg() + std::to_string(i) + ".jpg";
        std::filesystem::copy_file(photos.Jpeg(), copy);
        list.ThumbnailFiles.push_back(copy);
    }
    auto& browser = app.Load<frmThumbnail>(view, list, [] {});
    // The window's first page, since the allocator keeps what a page has taken for the next one.
    const double memory = MebibytesAtMost([&] { browser.Show(); });

    std::vector<double> library, ours;
    for (auto _ : state) {
        library.push_back(Milliseconds([&] { std::ranges::for_each(list.ThumbnailFiles, LibraryAlone); }));
        ours.push_back(Milliseconds([&] { browser.ShowThumbnails(0); }));
        if (browser.VisibleThumbnails() != PageFiles || browser.ThumbWidths[8] != TestPictures::Width)
            throw std::runtime_error("no page");
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["library_ms"] = Median(library);
    state.counters["ours_ms"] = Median(ours);
    state.counters["ratio"] = Median(ours) / Median(library);
    state.counters["memory_MiB"] = memory;
}

BENCHMARK(Page)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);

}  // namespace
}  // namespace tavrix::bench

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const tavrix::qt::QtProcess windowSystem(argv[0]);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::fflush(stdout);
    std::_Exit(0);
}
