// A package is made on real files while one call of the system after the other fails, and on a disk that is full.

#include <gtest/gtest.h>

#include <cerrno>
#include <map>
#include <string>
#include <vector>

#include "backends/headless/HeadlessToolkit.h"
#include "core/MainModule.h"
#include "platform/services/ProgramFiles.h"
#include "shows/package/SavePackage.h"
#include "support/FaultSweep.h"
#include "support/PackageBoxes.h"
#include "system_faults/HostMachine.h"
#include "system_faults/SystemFaults.h"

namespace tavrix::test {
namespace {

using AllFiles = std::map<std::string, std::string>;

constexpr const char* Show =
    "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n1\r\n\"a.wav\"\r\n0\r\n0\r\n5\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"
    "\"a.bmp\"\r\n\"\"\r\n\"b.bmp\"\r\n\"\"\r\n";
constexpr std::size_t Long = 20'000;

class FewFiles final : public ProgramFiles {
  public:
    std::vector<ProgramFile> List() override {
        return {{"TAVRIX.EXE", "C:\\Tavrix\\launcher"}, {"TAVRIX.LIB\\libx.so", "C:\\Tavrix\\libx.so"}};
    }
};

/// A package of the show in C:\p is made in C:\q. What of it is there then, and what was told.
struct Packed {
    explicit Packed(HostMachine& machine) {
        headless::HeadlessToolkit toolkit;
        forms::Application app{toolkit};
        MainModule module{app, machine.services};
        module.AppPath = "C:\\Tavrix\\";
        module.config.UseRecentDocuments = false;
        FewFiles programFiles;
        SavePackage(module, programFiles,
                    {.PackageName = "Trip", .PackageSource = "C:\\p\\", .PackageDestination = "C:\\q"},
                    "s.tvs");
        EXPECT_EQ(app.FormCount(), 0);
        boxes = PackageBoxes(toolkit.Failures());
    }
    PackageBoxes boxes{{}};
};

void PutShow(HostMachine& machine) {
    machine.folder.Put("c/p/s.tvs", Show);
    machine.folder.Put("c/p/a.bmp", std::string(Long, 'a'));
    machine.folder.Put("c/p/b.bmp", std::string(Long, 'b'));
    machine.folder.Put("c/p/a.wav", "sound");
    machine.folder.Put("c/Tavrix/launcher", "launcher");
    machine.folder.Put("c/Tavrix/libx.so", std::string(Long, 'x'));
}

AllFiles FilesOf(const HostMachine& machine, bool ofPackage) {
    AllFiles files = machine.AllFiles();
    std::erase_if(files, [&](const auto& file) { return file.first.starts_with("q/") != ofPackage; });
    return files;
}

AllFiles WholePackage() {
    HostMachine machine;
    PutShow(machine);
    EXPECT_EQ(Packed(machine).boxes.made, 1);
    return FilesOf(machine, true);
}

void CheckPackage(const AllFiles& made, const AllFiles& wanted, const PackageBoxes& boxes, bool mayLeave) {
    EXPECT_EQ(boxes.others, "");
    EXPECT_EQ(boxes.made, boxes.failed ? 0 : 1);
    for (const auto& [path, content] : made) {
        if (path.find("/.tavrix-") != std::string::npos) {
            EXPECT_TRUE(mayLeave) << path;
        } else if (path == "q/SLIDES/s.tvs") {
            EXPECT_TRUE(wanted.at(path).starts_with(content));
        } else {
            EXPECT_TRUE(wanted.contains(path) && wanted.at(path) == content) << path;
        }
    }
    if (boxes.made == 1 && !boxes.soundMissing) {
        EXPECT_EQ(made, wanted);
    }
}

class PackageSweep : public ::testing::TestWithParam<int> {};

TEST_P(PackageSweep, EachFileIsWholeAndTheSourceAsItWas) {
    const AllFiles wanted = WholePackage();
    const int came = SweepFaults([&](int call) {
        HostMachine machine;
        PutShow(machine);
        const AllFiles before = FilesOf(machine, false);
        bool fired = false;
        bool mayLeave = false;
        PackageBoxes boxes{{}};
        {
            SystemFaults faults(machine.folder.At("c"));
            faults.FailNth(call, GetParam());
            boxes = Packed(machine).boxes;
            fired = faults.Fired();
            mayLeave = faults.Failed() == "unlink";
        }
        CheckPackage(FilesOf(machine, true), wanted, boxes, mayLeave);
        EXPECT_EQ(FilesOf(machine, false), before);
        return fired;
    });
    EXPECT_GT(came, 20);
}

INSTANTIATE_TEST_SUITE_P(Errors, PackageSweep, ::testing::Values(EIO, ENOSPC));

TEST(PackageOnAFullDisk, IsToldWithTheRightWordsAtEachStage) {
    const auto make = [](std::size_t limit, const std::string& longerFile) {
        HostMachine machine;
        PutShow(machine);
        machine.folder.Put("c/" + longerFile, std::string(2 * Long, 'y'));
        const AllFiles before = FilesOf(machine, false);
        SystemFaults faults(machine.folder.At("c"));
        faults.LimitLength(limit);
        headless::HeadlessToolkit toolkit;
        forms::Application app{toolkit};
        MainModule module{app, machine.services};
        module.AppPath = "C:\\Tavrix\\";
        module.config.UseRecentDocuments = false;
        FewFiles programFiles;
        SavePackage(module, programFiles,
                    {.PackageName = "Trip", .PackageSource = "C:\\p\\", .PackageDestination = "C:\\q"},
                    "s.tvs");
        EXPECT_EQ(FilesOf(machine, false), before);
        const std::vector<std::string> said = toolkit.Failures();
        EXPECT_EQ(said.size(), 1U);
        return said.empty() ? std::string() : said.front();
    };
    EXPECT_NE(make(Long, "p/b.bmp")
                  .find("Unable to copy all images to slide show directory...\r\n\r\nDisk full..."),
              std::string::npos);
    EXPECT_NE(make(Long, "Tavrix/libx.so")
                  .find("Could not copy one of the Tavrix program files, unable to package Trip.\r\n\r\nDisk "
                        "full..."),
              std::string::npos);
}

}  // namespace
}  // namespace tavrix::test
