// The longest show there can be, read into the shared record and written from it, against the least that it takes: the
// bytes of its file read from, or written to, the same disk. Both sides run in turns in one iteration; the counters are
// the medians in milliseconds and their ratio.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <numeric>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/BenchFolder.h"
#include "common/DiskMachine.h"
#include "common/Measure.h"
#include "shows/files/LoadShowFile.h"
#include "shows/files/WriteSlideFile.h"

namespace tavrix::bench {
namespace {

/// A folder with the show; removed at the end.
class ShowOnDisk {
  public:
    explicit ShowOnDisk(const std::string& description) {
        std::ofstream out(Folder() / "s.tvs", std::ios::binary);
        out << "\"Tavrix Slide Show\"\r\n\"Version "
               "1.5\"\r\n0\r\n\"\"\r\n0\r\n0\r\n5\r\n0\r\n0\r\n0\r\n-1\r\n-1\r\n";
        for (int i = 0; i < SlideTexts::Slots; ++i)
            out << "\"C:\\Pictures\\Holidays\\IMG_" << 100'000 + i << ".JPG\"\r\n\"" << description << i
                << "\"\r\n";
    }

    [[nodiscard]] std::filesystem::path Folder() const { return folder_.Path(); }

  private:
    BenchFolder folder_{"bench_shows"};
};

/// The logic on the folder of a show.
class Machine {
  public:
    explicit Machine(const std::filesystem::path& folder) : disk_("C=" + folder.string()) {
        Module().AppPath = "C:\\";
    }
    [[nodiscard]] MainModule& Module() { return disk_.Module(); }

  private:
    DiskMachine disk_;
};

void Against(benchmark::State& state, const std::function<void()>& bytes, const std::function<void()>& work) {
    std::vector<double> plain, ours;
    for (auto _ : state) {
        plain.push_back(Milliseconds(bytes));
        ours.push_back(Milliseconds(work));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["bytes_ms"] = Median(plain);
    state.counters["ours_ms"] = Median(ours);
    state.counters["ratio"] = Median(ours) / Median(plain);
}

std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void ReadBytes(const std::filesystem::path& file) {
    std::string bytes(std::filesystem::file_size(file), '\0');
    std::ifstream(file, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    benchmark::DoNotOptimize(bytes);
}

void Load(benchmark::State& state, const std::string& description) {
    const ShowOnDisk show(description);
    Machine machine(show.Folder());
    Against(
        state, [&] { ReadBytes(show.Folder() / "s.tvs"); },
        [&] {
            LoadShowFile(machine.Module(), "C:\\s.tvs");
            if (machine.Module().show.SlideFiles.FirstEmpty() != SlideTexts::Slots) {
                throw std::runtime_error("not loaded");
            }
        });
}
void LoadPlain(benchmark::State& state) {
    Load(state, "On the beach, picture ");
}
void LoadUtf8(benchmark::State& state) {
    Load(state,
         "\xC3\x9C"
         "ber den D\xC3\xA4"
         "chern \xE6\x97\xA5 ");
}
void LoadWindows1252(benchmark::State& state) {
    Load(state,
         "\xDC"
         "ber den D\xE4"
         "chern ");
}

void Save(benchmark::State& state) {
    const ShowOnDisk show("On the beach, picture ");
    const std::string bytes = BytesOf(show.Folder() / "s.tvs");
    Machine machine(show.Folder());
    MainModule& module = machine.Module();
    LoadShowFile(module, "C:\\s.tvs");
    module.show.SaveFromArrays = true;
    module.show.SlideCount = SlideTexts::Slots;
    Against(
        state,
        [&] {
            std::ofstream(show.Folder() / "bytes", std::ios::binary)
                .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        },
        [&] { WriteSlideFile(module, "C:\\", "saved.tvs"); });
}

/// What the editor does to the longest show, against copying its texts one after the other.
void Rows(benchmark::State& state, const std::function<void(ShowSlides& slides)>& work) {
    std::vector<std::string> paths;
    for (int i = 0; i < SlideTexts::Slots; ++i)
        paths.push_back("C:\\Pictures\\Holidays\\IMG_" + std::to_string(100'000 + i) + ".JPG");
    ShowSlides full;
    full.InsertSlides(0, paths);
    for (int i = 0; i < SlideTexts::Slots; ++i)
        full.SlideDescriptions.Set(i, "On the beach, picture " + std::to_string(i));
    ShowSlides slides;
    std::vector<std::string> copy;
    std::vector<double> plain, ours;
    for (auto _ : state) {
        slides = full;
        plain.push_back(Milliseconds([&] {
            copy = {};
            copy = paths;
        }));
        benchmark::DoNotOptimize(copy);
        ours.push_back(Milliseconds([&] { work(slides); }));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["copy_ms"] = Median(plain);
    state.counters["ours_ms"] = Median(ours);
    state.counters["ratio"] = Median(ours) / Median(plain);
}
void AddAllBehindTheFirst(benchmark::State& state) {
    const std::vector<std::string> paths(SlideTexts::Slots - 1, "C:\\Pictures\\Holidays\\IMG_100000.JPG");
    Rows(state, [&](ShowSlides& slides) {
        slides.EraseSlides();
        slides.SlideFiles.Set(0, paths[0]);
        slides.InsertSlides(1, paths);
    });
}
void RemoveEverySecond(benchmark::State& state) {
    std::vector<int> indices;
    for (int i = 1; i < SlideTexts::Slots; i += 2)
        indices.push_back(i);
    Rows(state, [&](ShowSlides& slides) { slides.RemoveSlides(indices); });
}
void Reverse(benchmark::State& state) {
    std::vector<int> order(SlideTexts::Slots);
    std::iota(order.rbegin(), order.rend(), 0);
    Rows(state, [&](ShowSlides& slides) { slides.ArrangeSlides(order); });
}

BENCHMARK(LoadPlain)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(LoadUtf8)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(LoadWindows1252)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(AddAllBehindTheFirst)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(RemoveEverySecond)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(Reverse)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(Save)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);

}  // namespace
}  // namespace tavrix::bench
