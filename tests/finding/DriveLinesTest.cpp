#include "finding/DriveLines.h"

#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using headless::Service;
using Texts = std::vector<std::string>;

class DriveLinesTest : public ProgramFixture {};

TEST_F(DriveLinesTest, EachTypeHasItsLabel) {
    const std::pair<char, DriveType> drives[] = {{'D', DriveType::Unknown},   {'E', DriveType::NoRoot},
                                                 {'F', DriveType::Removable}, {'G', DriveType::Fixed},
                                                 {'H', DriveType::Network},   {'I', DriveType::CdRom},
                                                 {'J', DriveType::RamDisk}};
    for (const auto& [letter, type] : drives)
        platform.disks.AddDrive(letter, type);
    EXPECT_EQ(DriveLines(module), (Texts{"A:\\  [Removable]", "C:\\  [Fixed Disk]", "D:\\  [Unknown]",
                                         "E:\\  [Unknown]", "F:\\  [Removable]", "G:\\  [Fixed Disk]",
                                         "H:\\  [Network]", "I:\\  [CD-ROM]", "J:\\  [RAM Disk]"}));
}

TEST_F(DriveLinesTest, WithoutDrivesTheUsualOnesAreThereWithOneBlank) {
    module.config.DefaultFloppy = "B:\\";
    platform.faults.FailAlways(Service::Drives, "Roots", ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(DriveLines(module), (Texts{"B:\\ [Removable]", "C:\\ [Fixed Disk]"}));
    module.AppPath = "c:\\Tavrix\\";
    EXPECT_EQ(DriveLines(module).size(), 2U);
    module.AppPath = "d:\\Tavrix\\";
    EXPECT_EQ(DriveLines(module), (Texts{"B:\\ [Removable]", "C:\\ [Fixed Disk]", "D:\\ [Unknown]"}));
    platform.faults.Clear();
    for (const char letter : {'A', 'C'})
        platform.disks.RemoveDrive(letter);
    EXPECT_EQ(DriveLines(module).size(), 3U) << "none is like no answer";
}

/// A system that gives the whole of its buffer.
class PaddedDrives final : public Drives {
  public:
    std::string Roots() override { return std::string("c:\\") + std::string(146, '\0'); }
    DriveType Type(const std::string&) override { return DriveType::Fixed; }
    DiskSpace Space(const std::string&) override { return {}; }
    std::int64_t FreeBytes(const std::string&) override { return 0; }
    std::string RemovableDevice(const std::string&) override { return {}; }
};

TEST_F(DriveLinesTest, WhatFollowsTheLastDriveIsNone) {
    PaddedDrives drives;
    const Services& s = platform.services;
    const Services services{s.files,    drives,        s.profile, s.registry,     s.store,  s.shell,
                            s.pictures, s.clipboard,   s.sound,   s.help,         s.system, s.process,
                            s.viewLib,  s.wakefulness, s.desktop, s.saverPassword};
    EXPECT_EQ(DriveLines(MainModule(app, services)), Texts{"C:\\  [Fixed Disk]"});
}

TEST_F(DriveLinesTest, ATypeThatCannotBeToldIsUnknown) {
    platform.faults.FailAlways(Service::Drives, "Type", ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(DriveLines(module).front().substr(3), "  [Unknown]");
}

}  // namespace
}  // namespace tavrix::test
