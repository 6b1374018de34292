#include "core/KeptWorkingFiles.h"

#include "core/Settings.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

class KeptWorkingFilesTest : public ProgramFixture {
  protected:
    static constexpr const char* One = "C:\\Temp\\Untitled.BMP";
    static constexpr const char* Other = "C:\\Tavrix\\Untitled.BMP";
};

TEST_F(KeptWorkingFilesTest, SeveralAreKeptAndForgottenOneByOne) {
    EXPECT_FALSE(IsKeptWorkingFile(module, One));
    KeepWorkingFile(module, One);
    KeepWorkingFile(module, Other);
    KeepWorkingFile(module, One);
    EXPECT_TRUE(IsKeptWorkingFile(module, One));
    EXPECT_TRUE(IsKeptWorkingFile(module, Other));
    EXPECT_FALSE(IsKeptWorkingFile(module, ""));
    EXPECT_FALSE(IsKeptWorkingFile(module, "C:\\Temp"));
    ForgetWorkingFile(module, One);
    EXPECT_FALSE(IsKeptWorkingFile(module, One));
    EXPECT_TRUE(IsKeptWorkingFile(module, Other));
    ForgetWorkingFile(module, One);
    ForgetWorkingFile(module, Other);
    EXPECT_TRUE(module.KeptWorkingFiles.empty());
}

TEST_F(KeptWorkingFilesTest, OneThatIsKeptGivesWayIntoTheTrash) {
    platform.disks.PutFile(One, "an edit");
    GiveWayToEdit(module, One);
    EXPECT_TRUE(platform.shell.trash.empty());
    KeepWorkingFile(module, One);
    KeepWorkingFile(module, Other);
    GiveWayToEdit(module, One);
    EXPECT_EQ(platform.shell.trash, (std::vector<headless::RecordingShell::Trashed>{{One, "an edit"}}));
    EXPECT_FALSE(IsKeptWorkingFile(module, One));
    // One that is gone is no matter.
    GiveWayToEdit(module, Other);
    EXPECT_EQ(platform.shell.trash.size(), 1U);
    EXPECT_TRUE(module.KeptWorkingFiles.empty());
}

TEST_F(KeptWorkingFilesTest, WithoutATrashACopyOfItStays) {
    platform.disks.PutFile(One, "an edit");
    KeepWorkingFile(module, One);
    platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
    GiveWayToEdit(module, One);
    EXPECT_EQ(platform.disks.Content("C:\\Tavrix\\Backup of Untitled.BMP 1.bak"), "an edit");
    EXPECT_FALSE(IsKeptWorkingFile(module, One));
}

TEST_F(KeptWorkingFilesTest, WhereNothingTakesItItStaysKept) {
    platform.disks.PutFile(One, "an edit");
    KeepWorkingFile(module, One);
    platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
    platform.faults.FailAlways(headless::Service::Files, "Copy", ErrorNumber::DiskFull);
    EXPECT_THROW(GiveWayToEdit(module, One), RuntimeError);
    EXPECT_TRUE(IsKeptWorkingFile(module, One));
    EXPECT_EQ(platform.disks.Content(One), "an edit");
}

TEST_F(KeptWorkingFilesTest, TheExitLeavesAllThatAreKept) {
    for (const char* path : {One, Other}) {
        platform.disks.PutFile(path, "an edit");
        KeepWorkingFile(module, path);
    }
    SaveAllSettings(module, {});
    EXPECT_TRUE(platform.disks.Exists(One));
    EXPECT_TRUE(platform.disks.Exists(Other));
    ForgetWorkingFile(module, One);
    SaveAllSettings(module, {});
    EXPECT_FALSE(platform.disks.Exists(One));
    EXPECT_TRUE(platform.disks.Exists(Other));
}

}  // namespace
}  // namespace tavrix::test
