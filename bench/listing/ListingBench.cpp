// Listings of a folder of 50,000 files, and of one of 5,000 subfolders, against the least that any program needs for them: the names read and sorted
// as raw bytes. Both sides run in turns in one iteration; the counters are the medians in milliseconds and their
// ratio.

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "backends/linux/HostFiles.h"
#include "common/BenchFolder.h"
#include "common/Measure.h"

namespace tavrix::bench {
namespace {

constexpr int FileCount = 50'000;
constexpr int FolderCount = 5'000;
constexpr const char* Images = "*.dib;*.bmp;*.gif;*.jpg;*.jif;*.jpe;*.jpeg;*.ico;*.wmf;*.emf;*.rle;*.cur";

/// A folder of files and one of subfolders, named as cameras and people name them; removed at the end.
class TestFolders {
  public:
    TestFolders() {
        const std::filesystem::path& folder = folder_.Path();
        std::filesystem::create_directories(folder / "files");
        std::filesystem::create_directories(folder / "folders");
        for (int i = 0; i < FileCount; ++i) {
            const bool camera = i % 2 == 0;
            const std::string number = std::to_string(100'000 + i * 7919 % FileCount);
            const std::string name = (camera ? "IMG_" : "holiday ") + number + (camera ? ".JPG" : ".bmp");
            std::ofstream(folder / "files" / name).put('x');
            if (i < FolderCount) std::filesystem::create_directory(folder / "folders" / name);
        }
    }

    [[nodiscard]] std::string Path() const { return folder_.Path(); }

  private:
    BenchFolder folder_{"bench_listing"};
};

void ReadAndSort(const std::string& path, std::size_t count) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(path.c_str()), closedir);
    while (const dirent* entry = readdir(folder.get())) {
        if (entry->d_name[0] != '.') names.emplace_back(entry->d_name);
    }
    std::ranges::sort(names);
    if (names.size() != count) throw std::runtime_error("not listed");
}

void Against(benchmark::State& state, const std::string& name, std::size_t count,
             const std::function<std::size_t(HostFiles&)>& list) {
    static const TestFolders folders;
    DriveMap::Sources sources;
    sources.drives = "C=" + folders.Path();
    DriveMap map(sources);
    HostFiles files(map, {});
    std::vector<double> raw, ours;
    for (auto _ : state) {
        raw.push_back(Milliseconds([&] { ReadAndSort(folders.Path() + "/" + name, count); }));
        ours.push_back(Milliseconds([&] {
            if (list(files) != count) throw std::runtime_error("not listed");
        }));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["raw_ms"] = Median(raw);
    state.counters["ours_ms"] = Median(ours);
    state.counters["ratio"] = Median(ours) / Median(raw);
}

void ListImages(benchmark::State& state) {
    Against(state, "files", FileCount,
            [](HostFiles& files) { return files.List("C:\\files", Images).size(); });
}
void ListAll(benchmark::State& state) {
    Against(state, "files", FileCount,
            [](HostFiles& files) { return files.List("C:\\files", "*.*").size(); });
}
void Folders(benchmark::State& state) {
    Against(state, "folders", FolderCount,
            [](HostFiles& files) { return files.Folders("C:\\folders").size(); });
}
/// One name of all; the count stands for "found".
void First(benchmark::State& state) {
    Against(state, "files", FileCount, [](HostFiles& files) {
        return files.First("C:\\files\\*.*").empty() ? std::size_t{0} : std::size_t{FileCount};
    });
}

BENCHMARK(ListImages)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(ListAll)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(Folders)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(First)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);

}  // namespace
}  // namespace tavrix::bench
