/// What the logic itself costs between a start and the first picture: settings, layout, the whole start without a
/// window system. The real start, window system and all, is timed from outside by first_picture.py.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "backends/linux/DriveMap.h"
#include "backends/linux/HostProfile.h"
#include "core/Main.h"
#include "core/Settings.h"
#include "program/WireProgram.h"
#include "viewer/MainViewFrm.h"

namespace {

using namespace tavrix;

/// A program on the headless platform, before its start.
struct Machine {
    Machine() {
        platform.store.Set("EXEPath", "C:\\Tavrix\\");
        platform.store.Set("ProgramRun", "1");
        platform.store.Set("Show Tips at Startup", "0");
        platform.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        Surface surface(640, 480);
        platform.pictures.SetPicture("C:\\p\\x.jpg", PictureOf(std::move(surface)));
        WireProgram(module, lives);
        module.AppPath = "C:\\Tavrix\\";
    }

    headless::HeadlessServices platform;
    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};
    MainModule module{app, platform.services};
    Lives lives;
};

/// From the entry of the process to the laid-out main view with a picture.
void Start(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto machine = std::make_unique<Machine>();
        machine->platform.process.commandLine = "C:\\p\\x.jpg";
        state.ResumeTiming();
        Main(machine->module, machine->lives);
        state.PauseTiming();
        machine.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(Start)->Unit(benchmark::kMicrosecond);

void Relayout(benchmark::State& state) {
    Machine machine;
    machine.platform.process.commandLine = "C:\\p\\x.jpg";
    Main(machine.module, machine.lives);
    auto& view = *machine.app.Loaded<MainViewFrm>();
    for (auto _ : state)
        view.Form_Resize();
}
BENCHMARK(Relayout)->Unit(benchmark::kMicrosecond);

void LoadSettingsInMemory(benchmark::State& state) {
    Machine machine;
    SaveAllSettings(machine.module, MainViewPlacement{0, 0, 9510, 7110});
    for (auto _ : state)
        LoadSettings(machine.module);
}
BENCHMARK(LoadSettingsInMemory)->Unit(benchmark::kMicrosecond);

/// A profile of the size of tavrix.ini on the real disk.
class ProfileOnDisk : public benchmark::Fixture {
  public:
    void SetUp(const benchmark::State&) override {
        std::string name = (std::filesystem::temp_directory_path() / "tavrix-bench-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) std::abort();
        folder = name;
        std::ofstream out(folder / "tavrix.ini");
        out << "[Viewer]\r\n";
        for (int i = 0; i < 118; ++i)
            out << "SomeKeyOfTheViewer" << i << "=C:\\Pictures\\Holidays\\" << i << ".jpg\r\n";
    }
    void TearDown(const benchmark::State&) override { std::filesystem::remove_all(folder); }

    std::filesystem::path folder;
    std::string file = "C:\\tavrix.ini";
};

BENCHMARK_F(ProfileOnDisk, ReadSection)(benchmark::State& state) {
    DriveMap::Sources sources;
    sources.drives = "C=" + folder.string();
    DriveMap drives(sources);
    HostProfile profile(drives);
    for (auto _ : state)
        benchmark::DoNotOptimize(profile.Read("Viewer", file));
}
BENCHMARK_REGISTER_F(ProfileOnDisk, ReadSection)->Unit(benchmark::kMicrosecond);

/// The reading of the same file alone, to hold ReadSection against.
BENCHMARK_F(ProfileOnDisk, ReadFileAlone)(benchmark::State& state) {
    for (auto _ : state) {
        std::ifstream in(folder / "tavrix.ini", std::ios::binary);
        std::string text(std::istreambuf_iterator<char>(in), {});
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK_REGISTER_F(ProfileOnDisk, ReadFileAlone)->Unit(benchmark::kMicrosecond);

}  // namespace
