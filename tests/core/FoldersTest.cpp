#include "core/Folders.h"

#include <map>

#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using headless::Service;

class FoldersTest : public ProgramFixture {};

TEST_F(FoldersTest, TheTemporaryFolderEndsInABackslash) {
    EXPECT_EQ(GetTempFolder(module), "C:\\Temp\\");
    platform.files.SetFolder(KnownFolder::Temporary, " C:\\Other\\ ");
    EXPECT_EQ(GetTempFolder(module), "C:\\Other\\");
}

TEST_F(FoldersTest, WithoutATemporaryFolderTheProgramsFolderServes) {
    platform.files.SetFolder(KnownFolder::Temporary, "");
    EXPECT_EQ(GetTempFolder(module), "C:\\Tavrix\\");
    platform.files.SetFolder(KnownFolder::Temporary, "   ");
    EXPECT_EQ(GetTempFolder(module), "C:\\Tavrix\\");
    platform.files.SetFolder(KnownFolder::Temporary, "C:\\Temp");
    platform.faults.FailAlways(Service::Files, "Folder", ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(GetTempFolder(module), "C:\\Tavrix\\");
}

TEST_F(FoldersTest, APathThatExceedsTheBufferIsNotCutToAnotherFolder) {
    const std::string fits = "C:\\" + std::string(251, 't');
    platform.files.SetFolder(KnownFolder::Temporary, fits);
    EXPECT_EQ(GetTempFolder(module), fits + "\\");
    platform.files.SetFolder(KnownFolder::Temporary, fits + "t");
    EXPECT_EQ(GetTempFolder(module), "C:\\Tavrix\\");
    platform.files.SetFolder(KnownFolder::System, fits + "t");
    EXPECT_EQ(GetSystemFolder(module), "");
}

TEST_F(FoldersTest, TheWindowsAndSystemFoldersEndInABackslash) {
    EXPECT_EQ(GetWindowsFolder(module), "C:\\Windows\\");
    EXPECT_EQ(GetSystemFolder(module), "C:\\Windows\\System\\");
    platform.files.SetFolder(KnownFolder::Windows, "C:\\");
    EXPECT_EQ(GetWindowsFolder(module), "C:\\");
}

TEST_F(FoldersTest, AMissingWindowsOrSystemFolderIsEmpty) {
    platform.files.SetFolder(KnownFolder::System, "");
    EXPECT_EQ(GetSystemFolder(module), "");
    platform.files.SetFolder(KnownFolder::Windows, "");
    EXPECT_EQ(GetWindowsFolder(module), "");
    platform.files.SetFolder(KnownFolder::Windows, "   ");
    EXPECT_EQ(GetWindowsFolder(module), "");
    platform.files.SetFolder(KnownFolder::Windows, "C:\\Windows");
    platform.faults.FailAlways(Service::Files, "Folder", ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(GetWindowsFolder(module), "");
}

TEST_F(FoldersTest, MyDocumentsIsWhereTheSystemHasIt) {
    EXPECT_EQ(GetMyDocumentsFolder(module), "C:\\My Documents");
    platform.files.SetFolder(KnownFolder::Documents, "D:\\home\\me\\Documents");
    EXPECT_EQ(GetMyDocumentsFolder(module), "D:\\home\\me\\Documents");
}

TEST_F(FoldersTest, OtherwiseMyDocumentsIsOnTheDriveOfTheWindowsFolder) {
    platform.files.SetFolder(KnownFolder::Documents, "");
    platform.files.SetFolder(KnownFolder::Windows, "D:\\Windows");
    EXPECT_EQ(GetMyDocumentsFolder(module), "D:\\My Documents");
    platform.files.SetFolder(KnownFolder::Windows, "");
    EXPECT_EQ(GetMyDocumentsFolder(module), "C:\\My Documents");
    platform.faults.FailAlways(Service::Files, "Folder", ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(GetMyDocumentsFolder(module), "C:\\My Documents");
}

TEST_F(FoldersTest, TheShortPathOfAFolderEndsInABackslash) {
    EXPECT_EQ(GetShortPath(module, "c:\\tavrix"), "C:\\Tavrix\\");
    EXPECT_EQ(GetShortPath(module, "C:\\TAVRIX\\"), "C:\\Tavrix\\");
    EXPECT_EQ(GetShortPath(module, "C:\\none"), "");
    EXPECT_EQ(GetShortPath(module, ""), "");
    platform.faults.FailAlways(Service::Files, "ShortPath", ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(GetShortPath(module, "C:\\Tavrix"), "");
}

TEST_F(FoldersTest, AFilesDriveAndFolderBecomeTheCurrentOnes) {
    platform.disks.PutFolder("C:\\p\\q");
    ChangeToFolderOf(module, "C:\\p\\q\\a.bmp");
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p\\q");
    ChangeToFolderOf(module, "C:\\a.bmp");
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\");
    EXPECT_THROW(ChangeToFolderOf(module, "C:\\none\\a.bmp"), RuntimeError);
    EXPECT_THROW(ChangeToFolderOf(module, "Q:\\a.bmp"), RuntimeError);
}

TEST_F(FoldersTest, APathIsMadeFullFromTheCurrentFolder) {
    platform.disks.PutFolder("C:\\p\\q");
    platform.files.ChangeFolder("C:\\p\\q");
    EXPECT_EQ(FullPath(module, "a.bmp"), "C:\\p\\q\\a.bmp");
    EXPECT_EQ(FullPath(module, "../a.bmp"), "C:\\p\\a.bmp");
    EXPECT_EQ(FullPath(module, "\\a.bmp"), "C:\\a.bmp");
    EXPECT_EQ(FullPath(module, "c:a.bmp"), "C:\\p\\q\\a.bmp");
    EXPECT_EQ(FullPath(module, "D:a.bmp"), "D:a.bmp");
    EXPECT_EQ(FullPath(module, "d:/x//a.bmp"), "d:\\x\\a.bmp");
    EXPECT_EQ(FullPath(module, "//machine/a.bmp"), "\\\\machine\\a.bmp");
    EXPECT_EQ(FullPath(module, ""), "");
    platform.files.ChangeFolder("C:\\");
    EXPECT_EQ(FullPath(module, "a.bmp"), "C:\\a.bmp");
}

class FindCdRomDriveTest : public ProgramFixture {};

TEST_F(FindCdRomDriveTest, GivesTheFirstCdDrive) {
    EXPECT_EQ(FindCdRomDrive(module), "");
    platform.disks.AddDrive('Z', DriveType::CdRom);
    EXPECT_EQ(FindCdRomDrive(module), "Z:\\");
    platform.disks.AddDrive('E', DriveType::CdRom);
    platform.disks.AddDrive('D', DriveType::Network);
    EXPECT_EQ(FindCdRomDrive(module), "E:\\");
}

TEST_F(FindCdRomDriveTest, GivesTheLastOfAllLetters) {
    for (char letter = 'B'; letter < 'Z'; ++letter)
        platform.disks.AddDrive(letter, DriveType::Network);
    platform.disks.AddDrive('Z', DriveType::CdRom);
    EXPECT_EQ(FindCdRomDrive(module), "Z:\\");
}

TEST_F(FindCdRomDriveTest, GivesNoneWhenTheDrivesCannotBeAsked) {
    platform.disks.AddDrive('D', DriveType::CdRom);
    platform.faults.FailAlways(Service::Drives, "Type", ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(FindCdRomDrive(module), "");
    platform.faults.Clear();
    platform.faults.FailAlways(Service::Drives, "Roots", ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(FindCdRomDrive(module), "");
}

/// Drives of which only the free space matters.
class SpaceDrives final : public Drives {
  public:
    std::string Roots() override { return {}; }
    DriveType Type(const std::string&) override { return DriveType::Fixed; }
    DiskSpace Space(const std::string&) override { return space; }
    std::int64_t FreeBytes(const std::string&) override { return 0; }
    std::string RemovableDevice(const std::string&) override { return {}; }

    DiskSpace space;
};

class GetDiskFreeBytesTest : public ProgramFixture {
  protected:
    std::int32_t FreeOf(const DiskSpace& space) {
        drives.space = space;
        return GetDiskFreeBytes(other, "C:\\");
    }
    SpaceDrives drives;
    Services services{platform.files,    drives,
                      platform.profile,  platform.registry,
                      platform.store,    platform.shell,
                      platform.pictures, platform.clipboard,
                      platform.sound,    platform.help,
                      platform.system,   platform.process,
                      platform.viewLib,  platform.wakefulness,
                      platform.desktop,  platform.saverPassword};
    MainModule other{app, services};
};

TEST_F(GetDiskFreeBytesTest, MultipliesTheThreeFigures) {
    EXPECT_EQ(FreeOf({1, 512, 2847}), 1457664);
    EXPECT_EQ(FreeOf({64, 512, 65535}), 2147450880);
    EXPECT_EQ(FreeOf({1, 1, 2147483647}), 2147483647);
    EXPECT_EQ(FreeOf({8, 512, 0}), 0);
}

TEST_F(GetDiskFreeBytesTest, AnOverflowGivesZero) {
    EXPECT_EQ(FreeOf({1, 512, 4194304}), 0);
    EXPECT_EQ(FreeOf({64, 512, 65536}), 0);
    EXPECT_EQ(FreeOf({65536, 65536, 1}), 0);
    EXPECT_EQ(FreeOf({65536, 65536, 0}), 0);
    EXPECT_EQ(FreeOf({2147483647, 2147483647, 2147483647}), 0);
}

TEST_F(GetDiskFreeBytesTest, ADriveWithoutADiskGivesZero) {
    EXPECT_EQ(GetDiskFreeBytes(module, "A:\\"), 0);
    EXPECT_EQ(GetDiskFreeBytes(module, "Q:\\"), 0);
    platform.disks.InsertDisk('A');
    EXPECT_EQ(GetDiskFreeBytes(module, "A:\\"), 1457664);
}

}  // namespace
}  // namespace tavrix::test
