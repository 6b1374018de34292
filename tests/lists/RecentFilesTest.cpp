#include "lists/RecentFiles.h"

#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;
using headless::Service;

class RecentFilesTest : public ViewerTest {
  protected:
    static constexpr const char* Other = "C:\\other\\y.bmp";
    static constexpr const char* OnFloppy = "a:\\Sub\\z.bmp";

    /// Starts with these paths as the recent files, the latest first.
    void StartWith(const std::vector<std::string>& paths) {
        for (std::size_t i = 0; i < paths.size(); ++i)
            Setting("Recent" + std::to_string(i + 1), paths[i]);
        ASSERT_TRUE(Start());
    }
    static headless::ExpectedBox InsertDisk(Answer reply) {
        return {.text =
                    "Insert the disk that contains the file:\r\n\r\nSub\\z.bmp\r\n\r\n"
                    "...into Floppy Drive A:\\\r\n\r\nPress the \"OK\" button to continue.",
                .buttons = BoxButtons::OkCancel,
                .reply = reply};
    }
    void PutFloppy() {
        platform.disks.InsertDisk('A');
        platform.disks.PutFile("A:\\readme.txt", "x");
        PutPicture("A:\\Sub\\z.bmp", 70, 50);
    }
};

TEST_F(RecentFilesTest, EachEntryOpensItsFile) {
    std::vector<std::string> paths;
    for (int i = 1; i <= 7; ++i) {
        paths.push_back("C:\\p\\" + std::to_string(i) + ".bmp");
        PutPicture(paths.back(), 10 * i, 20);
    }
    StartWith(paths);
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_FALSE(Choose(*View().menu.mnuLast[i]));
        EXPECT_EQ(module.CurrentImage, paths[i]);
        EXPECT_EQ(View().Caption.Get(), "Tavrix - [" + paths[i] + "]");
        EXPECT_FLOAT_EQ(View().MainImage.Width, 150.0F * static_cast<float>(i + 1));
    }
    ExpectIdle();
    EXPECT_TRUE(View().menu.mnuEdit.Visible);
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p");
}

TEST_F(RecentFilesTest, TheFileKeepsItsPlaceInTheList) {
    PutPicture(ImagePath, 10, 10);
    PutPicture(Other, 20, 20);
    StartWith({ImagePath, Other});
    EXPECT_FALSE(Choose(View().menu.mnuLast2));
    EXPECT_EQ(module.CurrentImage, Other);
    EXPECT_EQ(module.config.Recent[0], ImagePath);
    EXPECT_EQ(module.config.Recent[1], Other);
    EXPECT_EQ(platform.shell.recent, std::vector<std::string>{Other});
}

TEST_F(RecentFilesTest, AnEntryOfAnotherSpellingStaysWhileItsFileIsThere) {
    platform.disks.PutFile("C:\\other\\y.bmp", "no picture");
    StartWith({"C:\\OTHER\\Y.BMP"});
    Expect({.text = "Unable to open the recent file:\r\n\r\nC:\\OTHER\\Y.BMP\r\n\r\nInvalid picture...",
            .icon = BoxIcon::Stop});
    EXPECT_FALSE(Choose(View().menu.mnuLast1));
    ExpectEmptyView();
    EXPECT_EQ(module.config.Recent[0], "C:\\OTHER\\Y.BMP");
}

TEST_F(RecentFilesTest, AFailureNamesThePathAndLeavesTheEmptyView) {
    PutPicture(ImagePath, 10, 10);
    StartWith({ImagePath, Other});
    EXPECT_FALSE(Choose(View().menu.mnuLast1));
    Expect(
        {.text = std::string("Unable to open the recent file:\r\n\r\n") + Other + "\r\n\r\nPath not found...",
         .icon = BoxIcon::Stop});
    EXPECT_FALSE(Choose(View().menu.mnuLast2));
    ExpectEmptyView();
    ExpectIdle();
}

TEST_F(RecentFilesTest, AFileThatIsNoMoreLeavesTheMenu) {
    PutPicture("C:\\other\\z.bmp", 10, 10);
    StartWith({ImagePath, Other, "C:\\other\\z.bmp"});
    for (const auto& [path, why] :
         {std::pair{ImagePath, "Path not found..."}, {Other, "File not found..."}}) {
        Expect({.text = std::string("Unable to open the recent file:\r\n\r\n") + path + "\r\n\r\n" + why,
                .icon = BoxIcon::Stop,
                .whileOpen = [this, path] { EXPECT_EQ(module.config.Recent[0], path) << "told first"; }});
        EXPECT_FALSE(Choose(View().menu.mnuLast1));
        ExpectEmptyView();
    }
    EXPECT_EQ(module.config.Recent[0], "C:\\other\\z.bmp");
    EXPECT_EQ(module.config.Recent[1], "");
    EXPECT_EQ(View().menu.mnuLast1.Caption.Get(), "  C:\\other\\z.bmp");
    EXPECT_FALSE(View().menu.mnuLast2.Visible);
    ExpectIdle();
}

TEST_F(RecentFilesTest, AFileThatCannotBeReadStaysInTheMenu) {
    platform.disks.PutFile(Other, "no picture");
    platform.disks.AddDrive('E', DriveType::CdRom);
    StartWith({Other, "E:\\disc\\x.bmp"});
    Expect({.text =
                std::string("Unable to open the recent file:\r\n\r\n") + Other + "\r\n\r\nInvalid picture...",
            .icon = BoxIcon::Stop});
    EXPECT_FALSE(Choose(View().menu.mnuLast1));
    // The disc may be put in again.
    Expect({.text = "Unable to open the recent file:\r\n\r\nE:\\disc\\x.bmp\r\n\r\nDisk not ready...",
            .icon = BoxIcon::Stop});
    EXPECT_FALSE(Choose(View().menu.mnuLast2));
    EXPECT_EQ(module.config.Recent[0], Other);
    EXPECT_EQ(module.config.Recent[1], "E:\\disc\\x.bmp");
}

TEST_F(RecentFilesTest, AnUnsavedImageIsAskedAbout) {
    PutPicture(Other, 20, 20);
    StartWith({Other});
    const std::string unsaved = "C:\\Temp\\Untitled.BMP";
    PutPicture(unsaved, 60, 50);
    module.CurrentImage = unsaved;
    headless::ExpectedBox question{
        .text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
        .icon = BoxIcon::Question,
        .buttons = BoxButtons::YesNo,
        .reply = Answer::No};
    Expect(question);
    EXPECT_FALSE(Choose(View().menu.mnuLast1));
    EXPECT_EQ(module.CurrentImage, unsaved);
    EXPECT_EQ(platform.faults.Calls(Service::Pictures), 0);
    ExpectIdle();
    question.reply = Answer::Yes;
    Expect(question);
    EXPECT_FALSE(Choose(View().menu.mnuLast1));
    EXPECT_EQ(module.CurrentImage, Other);
}

TEST_F(RecentFilesTest, ABusyProgramOpensNothing) {
    PutPicture(Other, 20, 20);
    StartWith({Other});
    {
        const forms::BusyGuard busy(module.Screen());
        EXPECT_FALSE(Choose(View().menu.mnuLast1));
    }
    EXPECT_EQ(module.CurrentImage, "");
    EXPECT_EQ(platform.faults.Calls(Service::Pictures), 0);
}

TEST_F(RecentFilesTest, AFloppyIsAskedForEvenIfTheDiskIsThere) {
    PutFloppy();
    StartWith({OnFloppy});
    Expect(InsertDisk(Answer::Ok));
    EXPECT_FALSE(Choose(View().menu.mnuLast1));
    EXPECT_EQ(module.CurrentImage, OnFloppy) << "a listed path is taken as it stands";
    EXPECT_EQ(View().Caption.Get(), std::string("Tavrix - [") + OnFloppy + "]");
}

TEST_F(RecentFilesTest, CancelStopsBeforeAnythingHappens) {
    PutPicture(ImagePath, 10, 10);
    PutFloppy();
    StartWith({ImagePath, OnFloppy});
    EXPECT_FALSE(Choose(View().menu.mnuLast1));
    const int calls = platform.faults.Calls(Service::Files) + platform.faults.Calls(Service::Drives);
    Expect(InsertDisk(Answer::Cancel));
    EXPECT_FALSE(Choose(View().menu.mnuLast2));
    EXPECT_EQ(module.CurrentImage, ImagePath);
    EXPECT_EQ(platform.faults.Calls(Service::Files) + platform.faults.Calls(Service::Drives) - calls, 1)
        << "the temporary folder is looked up for the discard question; the drive is not looked at";
    ExpectIdle();
}

TEST_F(RecentFilesTest, AMissingDiskIsAFailureAfterTheQuestion) {
    StartWith({OnFloppy});
    Expect(InsertDisk(Answer::Ok));
    Expect({.text = std::string("Unable to open the recent file:\r\n\r\n") + OnFloppy + "\r\n\r\n" +
                    DescriptionOf(ErrorNumber::DiskNotReady) + "...",
            .icon = BoxIcon::Stop});
    EXPECT_FALSE(Choose(View().menu.mnuLast1));
    ExpectEmptyView();
    ExpectIdle();
}

TEST_F(RecentFilesTest, ATopmostWindowMakesRoomForTheQuestion) {
    Setting("TopMostWindow", "True");
    PutFloppy();
    StartWith({OnFloppy});
    ASSERT_TRUE(Window().topmost);
    headless::ExpectedBox box = InsertDisk(Answer::Cancel);
    bool topmost = true;
    box.whileOpen = [&] { topmost = Window().topmost; };
    Expect(std::move(box));
    EXPECT_FALSE(Choose(View().menu.mnuLast1));
    EXPECT_FALSE(topmost);
    EXPECT_TRUE(Window().topmost);
}

TEST_F(RecentFilesTest, TheFullScreenViewFollowsWhereItIsWanted) {
    Setting("ViewFullScreen", "True");
    PutPicture(Other, 20, 20);
    StartWith({Other});
    Count(View().menu.mnuFullScreen);
    EXPECT_FALSE(Choose(View().menu.mnuLast1));
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 1);
}

TEST_F(RecentFilesTest, AnEntryCanBeChosenOnceItIsShown) {
    StartWith({});
    EXPECT_FALSE(View().menu.mnuLast1.Visible);
    PutPicture(ImagePath, 10, 10);
    View().Deliver(forms::DropEvent{{ImagePath}});
    EXPECT_TRUE(View().menu.mnuLast1.Visible);
    EXPECT_TRUE(View().menu.mnuLast1.State().enabled);
}

}  // namespace
}  // namespace tavrix::test
