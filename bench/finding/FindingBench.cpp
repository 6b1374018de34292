// Trees of 50,000, 100,000 and 200,000 files: all images found, against `find` with the same fourteen patterns on the same
// warm tree; and the search for files of like names, as what it adds to the walk. Both sides run in turns in one
// iteration; the counters are the medians in milliseconds, their ratio, and the time for a file in microseconds, which
// is the same for trees of all sizes where the time is linear. On a machine that is busy elsewhere, what the search adds to
// the thread of the windows (added_cpu_ms) tells more than what it adds to the wait. The trees are made in memory where the
// system has a folder there, since on a disk a million files take longer to make and remove than to find; TREES names
// another folder.

#include <benchmark/benchmark.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/BenchFolder.h"
#include "common/DiskMachine.h"
#include "common/Measure.h"
#include "core/ImageKinds.h"
#include "dialogs/FindWalk.h"
#include "finding/LikeNames.h"

namespace tavrix::bench {
namespace {

std::filesystem::path FolderOfTrees() {
    if (const char* const told = std::getenv("TREES")) return told;
    constexpr const char* InMemory = "/dev/shm";
    if (::access(InMemory, W_OK) == 0) return InMemory;
    return std::filesystem::temp_directory_path();
}

/// A tree with folders of 100 files, ten folders in each that holds folders; `kinds` of five files are images. With
/// `alike`, every image has the name of 19 others; else none has. Removed at the end.
class Tree {
  public:
    Tree(int files, int kinds, bool alike) {
        constexpr int InFolder = 100;
        constexpr int Copies = 20;
        constexpr const char* Endings[] = {".JPG", ".bmp", ".gif", ".ico", ".wmf"};
        constexpr const char* Others[] = {".txt", ".html"};
        for (int folder = 0; folder < files / InFolder; ++folder) {
            const std::filesystem::path at = folder_.Path() / ("year " + std::to_string(folder / 100)) /
                                             ("week " + std::to_string(folder / 10 % 10)) /
                                             std::to_string(folder % 10);
            std::filesystem::create_directories(at);
            for (int file = 0; file < InFolder; ++file) {
                const int number = alike ? folder / Copies * InFolder + file : folder * InFolder + file;
                const int kind = file % 5;
                const char* const ending = kind < kinds ? Endings[kind] : Others[kind % 2];
                const std::string name = "IMG_" + std::to_string(1'000'000 + number) + ending;
                if (::mknod((at / name).c_str(), S_IFREG | S_IRUSR | S_IWUSR, 0) != 0)
                    throw std::runtime_error("a file could not be made");
                if (kind < kinds) ++images_;
            }
        }
    }

    [[nodiscard]] std::string Path() const { return folder_.Path(); }
    [[nodiscard]] int Images() const { return images_; }

  private:
    BenchFolder folder_{"bench_finding", FolderOfTrees()};
    int images_ = 0;
};

/// The logic on a real disk, without windows.
class Machine {
  public:
    explicit Machine(const std::string& folder) : disk_("C=" + folder) {}
    [[nodiscard]] MainModule& Module() { return disk_.Module(); }

    /// Walks all of it.
    void Walk(
        const std::function<void(const std::string& folder, const std::string& name, FileNumber)>& file) {
        const bool cancelled = false;
        FindWalk walk(disk_.Module(), PatternOf(ImagesShown::All), cancelled);
        walk.OnFiles = [&](const std::string& folder, const std::vector<std::string>& names,
                           const std::vector<FileNumber>& numbers) {
            for (std::size_t i = 0; i < names.size(); ++i)
                file(folder, names[i], numbers[i]);
        };
        walk.Walk("C:\\");
    }

  private:
    DiskMachine disk_;
};

/// Of this thread; the folders are read by another.
double ProcessorMilliseconds(const std::function<void()>& work) {
    const auto now = [] {
        timespec time{};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double start = now();
    work();
    return now() - start;
}

void RunFind(const std::string& folder) {
    std::string command = "find '" + folder + "' \\( ";
    for (const ImageKind& kind : ImageKinds) {
        if (&kind != &ImageKinds.front()) command += "-o ";
        command += "-iname '*" + std::string(kind.ending) + "' ";
    }
    if (std::system((command + "\\) >/dev/null").c_str()) != 0) throw std::runtime_error("find failed");
}

void Expect(int count, int wanted) {
    if (count != wanted) throw std::runtime_error("not all images were found, or too many");
}

void FindAll(benchmark::State& state) {
    const int files = static_cast<int>(state.range(0));
    const Tree tree(files, 3, false);
    Machine machine(tree.Path());
    std::vector<double> plain, ours;
    for (auto _ : state) {
        plain.push_back(Milliseconds([&] { RunFind(tree.Path()); }));
        ours.push_back(Milliseconds([&] {
            std::vector<std::string> found;
            machine.Walk([&](const std::string& folder, const std::string& name, FileNumber) {
                found.push_back(folder + name);
            });
            Expect(static_cast<int>(found.size()), tree.Images());
        }));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["find_ms"] = Median(plain);
    state.counters["ours_ms"] = Median(ours);
    state.counters["ratio"] = Median(ours) / Median(plain);
    state.counters["us_a_file"] = Median(ours) * 1000 / files;
}

void Duplicates(benchmark::State& state, bool alike) {
    const int files = static_cast<int>(state.range(0));
    const Tree tree(files, 5, alike);
    Machine machine(tree.Path());
    std::vector<double> walk, search, walkCpu, searchCpu;
    for (auto _ : state) {
        const auto justWalk = [&] {
            std::vector<std::string> found;
            machine.Walk([&](const std::string& folder, const std::string& name, FileNumber) {
                found.push_back(folder + name);
            });
        };
        const auto findLike = [&] {
            LikeNames names(machine.Module().platform.files);
            machine.Walk([&](const std::string& folder, const std::string& name, FileNumber number) {
                names.Add(folder, name, number);
            });
            Expect(static_cast<int>(names.Paths().size()), alike ? tree.Images() : 0);
        };
        walk.push_back(Milliseconds([&] { walkCpu.push_back(ProcessorMilliseconds(justWalk)); }));
        search.push_back(Milliseconds([&] { searchCpu.push_back(ProcessorMilliseconds(findLike)); }));
        state.SetIterationTime(search.back() / 1000);
    }
    state.counters["walk_ms"] = Median(walk);
    state.counters["search_ms"] = Median(search);
    state.counters["added_ms"] = Median(search) - Median(walk);
    state.counters["added_cpu_ms"] = Median(searchCpu) - Median(walkCpu);
    state.counters["us_a_file"] = Median(search) * 1000 / files;
}
void OwnNames(benchmark::State& state) {
    Duplicates(state, false);
}
void LikeNamesEverywhere(benchmark::State& state) {
    Duplicates(state, true);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    for (const int files : {50'000, 100'000, 200'000})
        bench->Arg(files);
    bench->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
}

BENCHMARK(FindAll)->Apply(Sizes);
BENCHMARK(OwnNames)->Apply(Sizes);
BENCHMARK(LikeNamesEverywhere)->Apply(Sizes);

}  // namespace
}  // namespace tavrix::bench
