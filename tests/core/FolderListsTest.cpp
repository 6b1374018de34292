#include "dialogs/FolderLists.h"

#include "core/FolderDialog.h"
#include "support/ErrorOfCall.h"

namespace tavrix::test {
namespace {

using headless::Service;

class FolderListsTest : public FolderDialogTest {};

constexpr int RowOfA = 0;
constexpr int RowOfC = 1;
constexpr int RowOfD = 2;

TEST_F(FolderListsTest, TheListsBeginInTheCurrentFolder) {
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    ASSERT_EQ(dialog.File1.ListCount(), 1);
    EXPECT_EQ(dialog.File1.List(0), "a.bmp");
}

TEST_F(FolderListsTest, AFolderIsShownAsTheDiskSpellsItHoweverLongItIs) {
    std::string folder = "C:\\Pictures";
    for (int depth = 0; depth < 6; ++depth)
        folder += "\\" + std::string(60, 'n') + "Sub";
    platform.disks.PutFolder(folder);
    dialog.Lists.GoTo(UpperCase(folder) + "\\");
    EXPECT_EQ(Now(), At(folder));
    dialog.Lists.GoTo("c:\\pICTURES");
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(FolderListsTest, ADriveBringsTheListsToItsCurrentFolder) {
    PickDrive(RowOfD);
    EXPECT_EQ(Now(), At("D:\\"));
    PickDrive(RowOfC);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    platform.files.ChangeFolder("D:\\Photos");
    PickDrive(RowOfD);
    EXPECT_EQ(Now(), At("D:\\Photos"));
}

TEST_F(FolderListsTest, AFolderThatIsOpenedShowsItsFiles) {
    OpenRow(2);  // C:\, Pictures, Old
    EXPECT_EQ(Now(), At("C:\\Pictures\\Old"));
    ASSERT_EQ(dialog.File1.ListCount(), 1);
    EXPECT_EQ(dialog.File1.List(0), "o.bmp");
}

TEST_F(FolderListsTest, WithoutADiskTheDriveListReturns) {
    const Place before = Now();
    ExpectUnavailable();
    PickDrive(RowOfA);
    EXPECT_EQ(Now(), before);
    // And again: the drive list is back for good.
    ExpectUnavailable();
    PickDrive(RowOfA);
    EXPECT_EQ(Now(), before);
    platform.disks.InsertDisk('A');
    PickDrive(RowOfA);
    EXPECT_EQ(Now(), At("A:\\"));
}

TEST_F(FolderListsTest, ADriveThatHasGoneIsNotAvailable) {
    platform.disks.RemoveDrive('D');
    ExpectUnavailable();
    PickDrive(RowOfD);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(FolderListsTest, ADriveWhoseFoldersCannotBeReadIsNotAvailable) {
    platform.faults.FailAlways(Service::Files, "Look", ErrorNumber::PermissionDenied);
    ExpectUnavailable();
    PickDrive(RowOfD);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
}

TEST_F(FolderListsTest, AFolderThatVanishedIsToldAndLeavesTheList) {
    platform.disks.Remove("C:\\Pictures\\Old");
    ExpectError("Unable to change directory to:\r\n\r\nC:\\Pictures\\Old", ErrorNumber::PathNotFound);
    OpenRow(2);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    EXPECT_EQ(dialog.Dir1.ListCount(), 0);
}

TEST_F(FolderListsTest, AFolderThatMayNotBeReadIsTold) {
    platform.faults.FailNth(Service::Files, 1, ErrorNumber::PermissionDenied);
    ExpectError("Unable to change directory to:\r\n\r\nC:\\Pictures\\Old", ErrorNumber::PermissionDenied);
    OpenRow(2);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    EXPECT_EQ(dialog.Dir1.ListCount(), 1);
}

TEST_F(FolderListsTest, AFileListThatCannotFollowDoesSoAtTheNextFolder) {
    platform.faults.FailAlways(Service::Files, "Info", ErrorNumber::PathNotFound);
    OpenRow(2);
    EXPECT_EQ(Now(), (Place{"C:", "C:\\Pictures\\Old", "C:\\Pictures"}));
    platform.faults.Clear();
    OpenRow(0);
    EXPECT_EQ(Now(), At("C:\\"));
}

TEST_F(FolderListsTest, GoingSomewhereTakesTheDriveWithIt) {
    dialog.Lists.GoTo("d:\\photos");
    EXPECT_EQ(dialog.Drive1.Drive.Get(), "D:");
    EXPECT_TRUE(EqualIgnoringCase(dialog.Dir1.Path.Get(), "D:\\Photos"));
    EXPECT_TRUE(EqualIgnoringCase(dialog.File1.Path.Get(), "D:\\Photos"));
}

TEST_F(FolderListsTest, GoingNowhereIsAFailure) {
    EXPECT_EQ(ErrorOfCall([this] { dialog.Lists.GoTo("C:\\none"); }), 76);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    EXPECT_EQ(ErrorOfCall([this] { dialog.Lists.GoTo("Q:\\none"); }), 68);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    EXPECT_EQ(ErrorOfCall([this] { dialog.Lists.GoTo(""); }), 68);
    EXPECT_EQ(Now(), At("C:\\Pictures"));
    // The drive is there: that much of the way is gone.
    EXPECT_EQ(ErrorOfCall([this] { dialog.Lists.GoTo("D:\\none"); }), 76);
    EXPECT_EQ(Now(), At("D:\\"));
}

TEST_F(FolderListsTest, TheFolderEndsInOneBackslash) {
    EXPECT_EQ(dialog.Lists.Folder(), "C:\\Pictures\\");
    dialog.Lists.GoTo("D:\\");
    EXPECT_EQ(dialog.Lists.Folder(), "D:\\");
}

TEST_F(FolderListsTest, EachMoveIsToldOnceAndAfterTheFileList) {
    std::vector<std::string> seen;
    dialog.Lists.OnFolderChange = [&] { seen.push_back(dialog.File1.Path); };
    PickDrive(RowOfD);
    dialog.Lists.GoTo("D:\\");  // which is where it is
    dialog.Lists.GoTo("D:\\Photos");
    ExpectUnavailable();
    PickDrive(RowOfA);
    EXPECT_EQ(seen, (std::vector<std::string>{"D:\\", "D:\\Photos"}));
}

TEST_F(FolderListsTest, TheListsComeUpWhereTheCurrentFolderCannotBeTold) {
    platform.faults.FailAlways(Service::Files, "CurrentFolder", ErrorNumber::DiskNotReady);
    const auto& other = app.Load<FolderDialog>(module);
    EXPECT_EQ(other.Drive1.Drive.Get(), "C:");
    EXPECT_EQ(other.Dir1.Path.Get(), "C:\\");
    EXPECT_EQ(other.File1.Path.Get(), "C:\\");
    EXPECT_GT(other.Dir1.ListCount(), 0);
}

TEST_F(FolderListsTest, ABadDriveMaySendTheListsToTheProgramsFolder) {
    platform.disks.PutFolder("C:\\Tavrix");
    forms::MousePointer duringBox = forms::MousePointer::Hourglass;
    Expect({.text = "The selected drive is currently not available...",
            .icon = forms::BoxIcon::Exclamation,
            .whileOpen = [&] { duringBox = toolkit.ScreenPointer(); }});
    dialog.Lists2.GoTo("D:\\");
    dialog.Drive2.Deliver(forms::RowEvent{RowOfA});
    EXPECT_EQ(dialog.Drive2.Drive.Get(), "C:");
    EXPECT_EQ(dialog.Dir2.Path.Get(), "C:\\Tavrix");
    EXPECT_EQ(duringBox, forms::MousePointer::Default);
    EXPECT_FALSE(module.Busy());
    forms::MousePointer whileRead = forms::MousePointer::Default;
    platform.faults.AtNth(Service::Files, 1, [&] { whileRead = toolkit.ScreenPointer(); });
    dialog.Drive2.Deliver(forms::RowEvent{RowOfD});
    EXPECT_EQ(dialog.Dir2.Path.Get(), "D:\\");
    EXPECT_EQ(whileRead, forms::MousePointer::Hourglass);
    EXPECT_EQ(Now(), At("C:\\Pictures"));  // the other side stays
}

}  // namespace
}  // namespace tavrix::test
