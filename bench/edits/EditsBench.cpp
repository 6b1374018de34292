// The commands of editing as a user chooses them, on a bitmap of 24 megapixels in real files: undo copy, transform and
// the write of the result. No window system: what the screen shows is not drawn. The file and the temporary folder lie
// in the folder for temporary files (TMPDIR).
//
// Each command starts from the opened file (Opened) or from an image that has been edited before (Edited).
// bench/edits/compare.py runs ImageMagick over the same file.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "backends/linux/DriveMap.h"
#include "backends/linux/HostFiles.h"
#include "backends/linux/HostPictures.h"
#include "common/BenchFolder.h"
#include "core/Main.h"
#include "program/WireProgram.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::bench {
namespace {

constexpr int Width = 6000;
constexpr int Height = 4000;

/// A folder of this run, with the folder for temporary files in it; removed at the end.
class TestFolder {
  public:
    TestFolder() {
        std::filesystem::create_directories(folder_.Path() / "temp");
        setenv("TAVRIX_TEMP", (folder_.Path() / "temp").c_str(), 1);
        setenv("TAVRIX_HOME", folder_.Path().c_str(), 1);
    }

    void RemoveTemporaryFiles() const {
        for (const char* name : {"Untitled.BMP", "~undo.tmp"})
            std::filesystem::remove(folder_.Path() / "temp" / name);
    }
    [[nodiscard]] std::string PathOf(const std::string& name) const { return folder_.Path() / name; }

  private:
    BenchFolder folder_{"bench_edits"};
};

/// A program with real files and pictures, and with the rest of the platform in memory.
class Machine {
  public:
    Machine() {
        memory_.store.Set("EXEPath", "C:\\Tavrix\\");
        memory_.store.Set("ProgramRun", "1");
        memory_.store.Set("Show Tips at Startup", "0");
        memory_.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        module_.AppPath = "C:\\Tavrix\\";
        WireProgram(module_, lives_);
        image_ = drives_.ToDrivePath(folder_.PathOf("photo.bmp"));
        pictures_.SaveBitmap(Photo(), image_);
        memory_.process.commandLine = image_;
        Main(module_, lives_);
    }

    MainMenu& Menu() { return app_.Loaded<MainViewFrm>()->menu; }
    /// The user drops the file on the window; it has been decoded when this returns.
    void Open() {
        app_.Loaded<MainViewFrm>()->MainImage.Picture = Picture();
        module_.CurrentImage.clear();
        folder_.RemoveTemporaryFiles();
        app_.Loaded<MainViewFrm>()->Deliver(forms::DropEvent{{image_}});
        if (module_.CurrentImage != image_) throw std::runtime_error("the picture was not opened");
        static_cast<void>(app_.Loaded<MainViewFrm>()->MainImage.Picture.Get().pixels->Whole());
    }
    void Choose(forms::Menu& entry) {
        entry.Deliver(forms::ClickEvent{});
        if (!module_.CurrentImage.ends_with("Untitled.BMP"))
            throw std::runtime_error("the edit was not written");
    }

  private:
    static Surface Photo() {
        Surface surface(Width, Height);
        Pixel number = 0;
        for (Pixel& pixel : surface.Pixels())
            pixel = 0xFF000000U | (number++ * 2654435761U >> 8U);
        return surface;
    }

    TestFolder folder_;
    HostPaths paths_ = HostPaths::FromEnvironment();
    DriveMap drives_{DriveMap::SourcesOf(paths_)};
    HostFiles files_{drives_, paths_};
    HostPictures pictures_{files_};
    headless::HeadlessServices memory_;
    Services services_{files_,          memory_.drives,      memory_.profile, memory_.registry,
                       memory_.store,   memory_.shell,       pictures_,       memory_.clipboard,
                       memory_.sound,   memory_.help,        memory_.system,  memory_.process,
                       memory_.viewLib, memory_.wakefulness, memory_.desktop, memory_.saverPassword};
    headless::HeadlessToolkit toolkit_;
    forms::Application app_{toolkit_};
    MainModule module_{app_, services_};
    Lives lives_;
    std::string image_;
};

Machine& TheMachine() {
    static Machine machine;
    return machine;
}

enum class From { Opened, Edited };

void Edit(benchmark::State& state, From from, forms::Menu MainMenu::*entry) {
    Machine& machine = TheMachine();
    for (auto _ : state) {
        state.PauseTiming();
        machine.Open();
        if (from == From::Edited) machine.Choose(machine.Menu().mnuFlipVertically);
        sync();  // what earlier rounds wrote is not waited for below
        state.ResumeTiming();
        machine.Choose(machine.Menu().*entry);
    }
}

struct Command {
    const char* name;
    forms::Menu MainMenu::*entry;
};

const bool registered = [] {
    const auto add = [](const std::string& name, From from, forms::Menu MainMenu::*entry) {
        benchmark::RegisterBenchmark(name.c_str(), Edit, from, entry)
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime();
    };
    for (const Command& command : {Command{"Clockwise", &MainMenu::mnu90CW},
                                   {"CounterClockwise", &MainMenu::mnu90CCW},
                                   {"HalfTurn", &MainMenu::mnu180Degrees},
                                   {"FlipHorizontally", &MainMenu::mnuFlipHorizontal},
                                   {"FlipVertically", &MainMenu::mnuFlipVertically},
                                   {"Smaller25", &MainMenu::mnu25Smaller},
                                   {"Smaller50", &MainMenu::mnu50Smaller},
                                   {"Larger25", &MainMenu::mnu25Larger},
                                   {"Larger50", &MainMenu::mnu50Larger}}) {
        add(std::string("Opened/") + command.name, From::Opened, command.entry);
        add(std::string("Edited/") + command.name, From::Edited, command.entry);
    }
    add("Undo", From::Edited, &MainMenu::mnuUndo);
    return true;
}();

}  // namespace
}  // namespace tavrix::bench
