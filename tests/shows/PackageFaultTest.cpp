#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "core/MainModule.h"
#include "dialogs/WaitCopyFrm.h"
#include "shows/package/PackageLayout.h"
#include "shows/package/RemovePackage.h"
#include "shows/package/SavePackage.h"
#include "support/FaultSweep.h"
#include "support/PackageBoxes.h"

namespace tavrix::test {
namespace {

using headless::Service;
using AllFiles = std::map<std::string, std::string>;

constexpr const char* Show =
    "\"Tavrix Slide Show\"\r\n\"Version "
    "1.5\"\r\n1\r\n\"C:\\m\\a.wav\"\r\n0\r\n0\r\n5\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"
    "\"a.bmp\"\r\n\"first\"\r\n\"C:\\p\\b.bmp\"\r\n\"\"\r\n";
constexpr const char* PackedShow = "C:\\Out\\SLIDES\\s.tvs";

/// A user who makes a package, or deletes one. Boxes are closed as they come, or answered as expected.
struct Packer {
    Packer() : module{app, machine.services} {
        machine.disks.PutFolder("C:\\Out");
        machine.disks.PutFile("C:\\Shows\\s.tvs", Show);
        machine.disks.PutFile("C:\\Shows\\a.bmp", "picture a");
        machine.disks.PutFile("C:\\p\\b.bmp", "picture b");
        machine.disks.PutFile("C:\\m\\a.wav", "sound");
        for (const package::LayoutEntry& entry : package::Layout) {
            const std::string_view source = entry.sourceName.empty() ? entry.name : entry.sourceName;
            const std::string folder = entry.ofSystem ? "C:\\Windows\\System\\" : "C:\\Tavrix\\";
            machine.disks.PutFile(folder + std::string(source), "bytes of " + std::string(entry.name));
        }
        module.AppPath = "C:\\Tavrix\\";
        module.config.UseRecycleBin = false;
        machine.faults.Clear();
    }

    void Make() {
        package::InstalledFiles programFiles(module);
        SavePackage(module, programFiles,
                    {.PackageName = "Trip", .PackageSource = "C:\\Shows\\", .PackageDestination = "C:\\Out"},
                    "s.tvs");
    }
    [[nodiscard]] PackageBoxes Boxes() const { return PackageBoxes(toolkit.Failures()); }
    [[nodiscard]] AllFiles Files(bool ofPackage) const {
        AllFiles files = machine.disks.AllFiles();
        std::erase_if(files,
                      [&](const auto& file) { return file.first.starts_with("C:\\Out\\") != ofPackage; });
        return files;
    }

    headless::HeadlessServices machine;
    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};
    MainModule module;
};

class PackageFault : public ::testing::TestWithParam<std::tuple<Service, ErrorNumber>> {
  protected:
    static AllFiles Wanted() {
        Packer packer;
        packer.Make();
        EXPECT_EQ(packer.Boxes().made, 1);
        return packer.Files(true);
    }

    bool MakeWithFault(int call) const {
        const auto& [service, error] = GetParam();
        Packer packer;
        const AllFiles before = packer.Files(false);
        packer.machine.faults.FailNth(service, call, error);
        packer.Make();
        const bool fired = packer.machine.faults.Fired();
        const PackageBoxes boxes = packer.Boxes();
        EXPECT_EQ(packer.Files(false), before);
        EXPECT_EQ(boxes.others, "");
        EXPECT_EQ(boxes.made, boxes.failed ? 0 : 1);
        EXPECT_EQ(packer.app.FormCount(), 0);
        const AllFiles made = packer.Files(true);
        for (const auto& [path, content] : made) {
            if (path == PackedShow) {
                EXPECT_TRUE(wanted.at(path).starts_with(content));  // the slides before the failure
            } else {
                EXPECT_TRUE(wanted.contains(path) && wanted.at(path) == content) << path;
            }
        }
        if (boxes.made == 1 && !boxes.soundMissing) {
            EXPECT_EQ(made, wanted);
        }
        return fired;
    }

    AllFiles wanted = Wanted();
};

TEST_P(PackageFault, TheSourceIsUntouchedAndAFailureIsTold) {
    const int faults = SweepFaults([this](int call) { return MakeWithFault(call); });
    const bool writes = std::get<0>(GetParam()) == Service::Files;
    EXPECT_GT(faults, writes ? 60 : 1);
}

INSTANTIATE_TEST_SUITE_P(Calls, PackageFault,
                         ::testing::Combine(::testing::Values(Service::Files, Service::Profile),
                                            ::testing::Values(ErrorNumber::PermissionDenied,
                                                              ErrorNumber::DiskFull,
                                                              ErrorNumber::FileNotFound)));

/// What a failed deletion leaves is deleted by the next one.
TEST(RemovalFault, WhatIsLeftIsKnownAsAPackageAndCanBeDeletedAgain) {
    const auto ends = [](const Packer& packer) {
        return packer.toolkit.Failures().back().find("has been deleted...") != std::string::npos;
    };
    const int faults = SweepFaults([&ends](int call) {
        Packer packer;
        packer.Make();
        const AllFiles others = packer.Files(false);
        packer.machine.faults.Clear();
        packer.machine.faults.FailNth(Service::Files, call, ErrorNumber::PermissionDenied);
        RemovePackage(packer.module, "C:\\Out\\", "Trip");
        const bool fired = packer.machine.faults.Fired();
        packer.machine.faults.Clear();
        const bool done = ends(packer);
        EXPECT_TRUE(done || packer.machine.disks.Exists("C:\\Out\\setup.ini") || packer.Files(true).empty());
        EXPECT_TRUE(fired || !packer.machine.disks.Exists("C:\\Out"));
        if (packer.machine.disks.Exists("C:\\Out")) RemovePackage(packer.module, "C:\\Out\\", "Trip");
        EXPECT_TRUE(ends(packer));
        EXPECT_FALSE(packer.machine.disks.Exists("C:\\Out"));
        EXPECT_EQ(packer.Files(false), others);
        return fired;
    });
    EXPECT_GT(faults, 50);
}

}  // namespace
}  // namespace tavrix::test
