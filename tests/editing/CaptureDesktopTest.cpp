// The picture of the whole screen.

#include "DesktopTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

class CaptureDesktopTest : public DesktopTest {
  protected:
    static constexpr const char* NoContext = "Unable to capture desktop window...";
    static constexpr const char* NotCreated = "Unable to create an image of the desktop window.\r\n\r\n";
    static constexpr const char* NotKept = "Unable to write image of desktop to a temporary file.\r\n\r\n";

    CaptureDesktopTest() { platform.desktop.screen = Different(1280, 1024); }

    bool Capture() { return Choose(Menus().mnuCaptureDesktop); }
    void ExpectLost() {
        ExpectEmptyView();
        ExpectIdle();
        EXPECT_TRUE(View().Visible());
        EXPECT_TRUE(Window().visible);
        EXPECT_EQ(ContentOf(Opened), BitmapOf(Different(30, 20)));
    }
};

TEST_F(CaptureDesktopTest, TheScreenWithoutTheMainViewBecomesAnUnsavedImage) {
    StartWithImage(30, 20);
    Menus().mnuUndo.Enabled = true;
    Menus().mnuUndo.Caption = "&Undo Crop";
    bool looked = false;
    platform.faults.AtNth(Service::Desktop, 1, [&] {
        looked = true;
        EXPECT_FALSE(View().Visible());
        EXPECT_EQ(toolkit.VisibleWindow("MainViewFrm"), nullptr);
        EXPECT_EQ(View().MainImage.Width.Get(), 1280 * 15);
        EXPECT_EQ(View().MainImage.Height.Get(), 1024 * 15);
    });
    EXPECT_FALSE(Capture());
    EXPECT_TRUE(looked);
    ExpectBroughtIn(Different(1280, 1024));
    EXPECT_EQ(ContentOf(Opened), BitmapOf(Different(30, 20)));
    EXPECT_FALSE(platform.disks.Exists(Undoing));
}

TEST_F(CaptureDesktopTest, NeedsNoImage) {
    ASSERT_TRUE(Start());
    EXPECT_FALSE(Capture());
    ExpectBroughtIn(Different(1280, 1024));
}

TEST_F(CaptureDesktopTest, TheViewStartsAtTheUpperLeftCorner) {
    StartWithImage(2000, 2000);
    View().hsbPict.Value = 300;
    View().vsbPict.Value = 600;
    EXPECT_FALSE(Capture());
    ExpectBroughtIn(Different(1280, 1024));
}

TEST_F(CaptureDesktopTest, TheWindowSizesItselfToTheScreen) {
    Setting("AutosizeWindow", "True");
    StartWithImage(30, 20);
    EXPECT_FALSE(Capture());
    ExpectBroughtIn(Different(1280, 1024));
    EXPECT_EQ(View().Width.Get(), 1280 * 15);
    EXPECT_EQ(View().Height.Get(), 1024 * 15);
}

TEST_F(CaptureDesktopTest, SeveralDisplaysAreAllInTheImage) {
    platform.desktop.screen = Different(2304, 1100);
    StartWithImage(30, 20);
    EXPECT_FALSE(Capture());
    ExpectBroughtIn(Different(2304, 1100));
}

TEST_F(CaptureDesktopTest, APixelOfAScaledScreenIsAPixelOfTheImage) {
    toolkit.screen = {2560, 2048, 7.5F, 7.5F, 24};
    platform.desktop.screen = Different(2560, 2048);
    StartWithImage(30, 20);
    EXPECT_FALSE(Capture());
    ExpectBroughtIn(Different(2560, 2048));
    EXPECT_EQ(View().MainImage.Width.Get(), 2560 * 7.5F);
}

TEST_F(CaptureDesktopTest, NoToTheDiscardQuestionChangesNothingAndHidesNoWindow) {
    StartWithImage(30, 20);
    MakeUnsaved();
    const Surface before = Shown();
    ExpectDiscard("Discard changes and continue?", Answer::No);
    EXPECT_FALSE(Capture());
    ExpectEdited(before);
    ExpectUndo("&Undo Flip Vertically", true);
    EXPECT_EQ(platform.faults.Calls(Service::Desktop), 0);
    EXPECT_TRUE(View().Visible());

    ExpectDiscard("Discard changes and continue?", Answer::Yes);
    EXPECT_FALSE(Capture());
    ExpectBroughtIn(Different(1280, 1024));
}

TEST_F(CaptureDesktopTest, ADesktopThatLetsNobodyLook) {
    platform.desktop.screen.reset();
    StartWithImage(30, 20);
    ExpectStop(NoContext, [&] {
        EXPECT_FALSE(View().Visible());
        EXPECT_FALSE(module.Busy());
    });
    EXPECT_FALSE(Capture());
    ExpectLost();
    EXPECT_FALSE(platform.disks.Exists(Working));
}

TEST_F(CaptureDesktopTest, ALookThatFails) {
    platform.faults.FailAlways(Service::Desktop, "Capture", ErrorNumber::OutOfMemory);
    StartWithImage(30, 20);
    ExpectStop(std::string(NotCreated) + "Out of memory...");
    EXPECT_FALSE(Capture());
    ExpectLost();
    EXPECT_FALSE(platform.disks.Exists(Working));

    platform.faults.Clear();
    EXPECT_FALSE(Capture());
    ExpectEdited(Different(1280, 1024));
    EXPECT_TRUE(Menus().mnuEdit.Visible);
}

TEST_F(CaptureDesktopTest, AnImageThatCannotBeWritten) {
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    StartWithImage(30, 20);
    ExpectStop(std::string(NotKept) + "Disk full...");
    EXPECT_FALSE(Capture());
    ExpectLost();
}

TEST_F(CaptureDesktopTest, AWorkingFileThatIsReadOnlyIsMadeInTheProgramsFolder) {
    platform.disks.PutFile(Working, "locked");
    platform.disks.SetReadOnly(Working, true);
    StartWithImage(30, 20);
    EXPECT_FALSE(Capture());
    ExpectBroughtIn(Different(1280, 1024), WorkingBeside);
    EXPECT_EQ(ContentOf(Working), "locked");
}

TEST_F(CaptureDesktopTest, TheSelectionOfTheFormerImageIsNotForgotten) {
    StartWithImage(30, 20);
    Select(2, 2, 20, 10);
    EXPECT_FALSE(Capture());
    EXPECT_TRUE(View().selection.SelectionShown);
    ExpectBroughtIn(Different(1280, 1024));
}

TEST_F(CaptureDesktopTest, NothingElseStartsMeanwhile) {
    StartWithImage(30, 20);
    int tries = 0;
    WhenMessagesRun([&] {
        if (!module.Busy()) return;
        ++tries;
        EXPECT_FALSE(Choose(Menus().mnuClear));
        EXPECT_FALSE(Choose(Menus().mnuCaptureDesktop));
    });
    EXPECT_FALSE(Capture());
    EXPECT_GT(tries, 3);
    EXPECT_EQ(platform.faults.Calls(Service::Desktop), 1);
    ExpectBroughtIn(Different(1280, 1024));
}

TEST_F(CaptureDesktopTest, DesktopCommandsDoNothingWhileTheProgramIsBusy) {
    StartWithImage(30, 20);
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    for (forms::Menu* entry : BringingIn())
        EXPECT_FALSE(Choose(*entry));
    EXPECT_FALSE(Choose(Menus().mnuSetWallpaper));
    EXPECT_FALSE(Choose(Menus().mnuClearWallpaper));
    EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
    EXPECT_EQ(app.FormCount(), 1);
    EXPECT_EQ(platform.faults.Calls(Service::Desktop), 0);
    EXPECT_EQ(module.CurrentImage, Opened);
}

}  // namespace
}  // namespace tavrix::test
