// What the editor of shows does to the longest show, 30,001 slides, in memory: the processor's time for the logic in
// milliseconds, as a median. "growth" is that time over the one for 10,000 slides: 3 is linear.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "common/Measure.h"
#include "core/Main.h"
#include "program/WireProgram.h"
#include "shows/editor/SlideLoadFrm.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::bench {
namespace {

constexpr int Longest = SlideTexts::Slots;
constexpr int Shorter = 10'000;

std::string PathOf(int slide) {
    return "C:\\Pictures\\IMG_" + std::to_string(100'000 + slide) + ".JPG";
}

/// In milliseconds. Whatever else the machine does takes none of it.
double ProcessorTime() {
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// The editor above a program in memory, with a source folder and a show of so many files.
class Bench {
  public:
    explicit Bench(int count) : count_(count) {
        platform.store.Set("EXEPath", "C:\\Tavrix\\");
        platform.store.Set("ProgramRun", "1");
        platform.store.Set("Show Tips at Startup", "0");
        platform.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        platform.process.commandLine = "SHOW";
        for (int i = 0; i < count; ++i)
            platform.disks.PutFile(PathOf(i), "x");
        platform.disks.PutFolder("C:\\Shows");
        WireProgram(module, lives);
        Main(module, lives);
        Editor().Lists.GoTo("C:\\Pictures");
        PutShow(count);
    }
    ~Bench() {
        for (const std::string& failure : toolkit.Failures()) {
            std::cerr << failure << '\n';
            std::abort();
        }
    }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    SlideLoadFrm& Editor() { return *app.Loaded<SlideLoadFrm>(); }
    [[nodiscard]] int Count() const { return count_; }

    void PutShow(int count) {
        std::vector<std::string> paths;
        for (int i = 0; i < count; ++i)
            paths.push_back(PathOf(i));
        module.show.EraseSlides();
        module.show.InsertSlides(0, paths);
        for (int i = 0; i < count; ++i)
            module.show.SlideDescriptions.Set(i, "What this is about");
        Editor().ShowLoaded("C:\\Shows\\long.tvs");
        module.show.ShowChanged = true;
    }
    /// The longest show is told to be too long.
    void ExpectMaximum() {
        if (count_ != Longest) return;
        toolkit.Expect({.text =
                            "The maximum of 30,000 slides has been loaded. Any remaining images in the Slide "
                            "Show file will be ignored...",
                        .icon = forms::BoxIcon::Exclamation,
                        .systemModal = true});
    }
    void Ask(const std::string& text, const std::string& title = "Tavrix") {
        toolkit.Expect({.text = text,
                        .icon = forms::BoxIcon::Question,
                        .buttons = forms::BoxButtons::YesNo,
                        .reply = forms::Answer::Yes,
                        .title = title});
    }

    headless::HeadlessServices platform;
    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};
    MainModule module{app, platform.services};
    Lives lives;

  private:
    int count_;
};

/// Something that the user does, and what has to be so before.
struct Work {
    std::function<void(Bench&)> prepare;
    std::function<void(Bench&)> run;
};

double Time(Bench& bench, const Work& work) {
    bench.PutShow(bench.Count());
    if (work.prepare) work.prepare(bench);
    const double start = ProcessorTime();
    work.run(bench);
    return ProcessorTime() - start;
}

void Measure(benchmark::State& state, const Work& work) {
    Bench longest(Longest);
    Bench shorter(Shorter);
    std::vector<double> times;
    std::vector<double> shortTimes;
    for (auto _ : state) {
        shortTimes.push_back(Time(shorter, work));
        times.push_back(Time(longest, work));
        state.SetIterationTime(times.back() / 1000);
    }
    state.counters["ms"] = Median(times);
    state.counters["growth"] = Median(times) / Median(shortTimes);
}

void Run(forms::Menu& entry) {
    entry.Deliver(forms::ClickEvent{});
}
void Press(forms::CommandButton& button) {
    button.Deliver(forms::ClickEvent{});
}

forms::RowRanges Odd(int rows) {
    forms::RowRanges odd;
    for (int row = 1; row < rows; row += 2)
        odd.Add(row);
    return odd;
}

void AddAllBehindACurrentRow(benchmark::State& state) {
    Measure(state, {[](Bench& bench) {
                        bench.PutShow(1);
                        bench.Editor().File1.Refresh();
                        bench.Editor().ListView.ListIndex = 0;
                        bench.ExpectMaximum();  // with the row that is there
                    },
                    [](Bench& bench) { Press(bench.Editor().CmdAddAll); }});
}

void SelectAll(benchmark::State& state) {
    Measure(state, {{}, [](Bench& bench) { Run(bench.Editor().Menu2.mnuListSelectAll); }});
}

void RemoveEverySecond(benchmark::State& state) {
    Measure(state, {[](Bench& bench) { bench.Editor().ListView.SetSelection(Odd(bench.Count())); },
                    [](Bench& bench) { Press(bench.Editor().CmdRemove); }});
}

void Reverse(benchmark::State& state) {
    Measure(state, {{}, [](Bench& bench) { Run(bench.Editor().Menu2.mnuReverseOrder); }});
}

void Randomize(benchmark::State& state) {
    Measure(state, {{}, [](Bench& bench) { Run(bench.Editor().Menu2.mnuRandomizeOrder); }});
}

void SelectMissing(benchmark::State& state) {
    Measure(state,
            {[](Bench& bench) {
                 const std::string title = "Tavrix - [Select Missing Slides]";
                 bench.Ask("Check current slide show to see if all files still exist?", title);
                 bench.toolkit.Expect({.text = "No missing slide show files were found...", .title = title});
             },
             [](Bench& bench) { Run(bench.Editor().Menu2.mnuSelectMissing); }});
}

void Information(benchmark::State& state) {
    Measure(state,
            {[](Bench& bench) {
                 static const std::string rule = "\r\n_____________________\r\n\r\n";
                 const std::string count = bench.Count() == Longest ? "30,001" : "10,000";
                 bench.toolkit.Expect(
                     {.text = "C:\\Shows\\long.tvs" + rule +
                              "Slide show file size = (File size is unknown.)\r\nFile date and time = "
                              "(Unable to get file date and time.)" +
                              rule + "Sound file = (Sound file has not been specified.)" + rule + count +
                              " slides (images) total...\r\nTotal size of slide show = " + count + " bytes",
                      .title = "Tavrix - [Slide Show Information]"});
             },
             [](Bench& bench) { Run(bench.Editor().Menu2.mnuSlideShowInfo); }});
}

void Save(benchmark::State& state) {
    Measure(state, {[](Bench& bench) {
                        bench.Ask(
                            "About to update the slide show file:\r\n\r\nC:\\Shows\\long.tvs\r\n\r\nAre "
                            "you sure?");
                    },
                    [](Bench& bench) {
                        Press(bench.Editor().CmdSave);
                        if (bench.module.show.ShowChanged) std::abort();
                        bench.platform.disks.Remove("C:\\Shows\\long.tvs");
                    }});
}

void Load(benchmark::State& state) {
    Measure(state, {[](Bench& bench) {
                        bench.Ask(
                            "About to update the slide show file:\r\n\r\nC:\\Shows\\long.tvs\r\n\r\nAre "
                            "you sure?");
                        Press(bench.Editor().CmdSave);
                        bench.ExpectMaximum();
                    },
                    [](Bench& bench) {
                        bench.Editor().ListView.Deliver(forms::DropEvent{{"C:\\Shows\\long.tvs"}, 1, 1});
                        if (bench.Editor().ListView.ListCount() != bench.Count()) std::abort();
                        bench.platform.disks.Remove("C:\\Shows\\long.tvs");
                    }});
}

void Settings(benchmark::internal::Benchmark* benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(25);
}

BENCHMARK(AddAllBehindACurrentRow)->Apply(Settings);
BENCHMARK(SelectAll)->Apply(Settings);
BENCHMARK(RemoveEverySecond)->Apply(Settings);
BENCHMARK(Reverse)->Apply(Settings);
BENCHMARK(Randomize)->Apply(Settings);
BENCHMARK(SelectMissing)->Apply(Settings);
BENCHMARK(Information)->Apply(Settings);
BENCHMARK(Save)->Apply(Settings);
BENCHMARK(Load)->Apply(Settings);

}  // namespace
}  // namespace tavrix::bench
