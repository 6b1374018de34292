#include "ViewerTest.h"

namespace tavrix::test {
namespace {

using forms::MouseAction;
namespace MouseButton = forms::MouseButton;
namespace ShiftMask = forms::ShiftMask;

class MouseTest : public ViewerTest {
  protected:
    template <class Control>
    void Click(Control& control, int button, int shift = 0) {
        Mouse(control, MouseAction::Down, button, shift);
        Mouse(control, MouseAction::Up, button, shift);
    }
    void StartToOpenByClick(const std::string& clickScreenOpen = "True") {
        Setting("ClickScreenOpen", clickScreenOpen);
        ASSERT_TRUE(Start());
        Count(View().menu.mnuOpen);
    }
};

TEST_F(MouseTest, AClickAnywhereOpensWhereThatIsWanted) {
    StartToOpenByClick();
    Click(View(), MouseButton::Left);
    Click(View().picFrame, MouseButton::Left);
    Click(View().MainImage, MouseButton::Left);
    EXPECT_EQ(Runs(View().menu.mnuOpen), 3);
}

TEST_F(MouseTest, AClickOpensNothingOtherwise) {
    StartToOpenByClick("False");
    Click(View(), MouseButton::Left);
    Click(View().MainImage, MouseButton::Left);
    EXPECT_EQ(Runs(View().menu.mnuOpen), 0);
}

TEST_F(MouseTest, OtherButtonsAndAShiftedClickOpenNothing) {
    StartToOpenByClick();
    Click(View(), MouseButton::Middle);
    Click(View(), MouseButton::Left, ShiftMask::Shift);
    Click(View(), MouseButton::Left, ShiftMask::Ctrl);
    Click(View().MainImage, MouseButton::Left, ShiftMask::Shift);
    EXPECT_EQ(Runs(View().menu.mnuOpen), 0);
}

TEST_F(MouseTest, AClickDuringWorkDoesNothing) {
    StartToOpenByClick();
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    Click(View(), MouseButton::Left);
    Click(View().MainImage, MouseButton::Left);
    Click(View(), MouseButton::Right);
    EXPECT_EQ(Runs(View().menu.mnuOpen), 0);
    EXPECT_TRUE(toolkit.Popups().empty());
}

TEST_F(MouseTest, AClickThatDropsASelectionDoesNotOpen) {
    Setting("ClickScreenOpen", "True");
    StartWithPicture(100, 80);
    Count(View().menu.mnuOpen);
    Mouse(View().MainImage, MouseAction::Down, MouseButton::Left, ShiftMask::Shift, 10, 10);
    Mouse(View().MainImage, MouseAction::Move, MouseButton::Left, ShiftMask::Shift, 30, 30);
    Mouse(View().MainImage, MouseAction::Up, MouseButton::Left, ShiftMask::Shift, 30, 30);
    EXPECT_EQ(Runs(View().menu.mnuOpen), 0);
    Click(View().MainImage, MouseButton::Left);
    EXPECT_EQ(Runs(View().menu.mnuOpen), 0);
    Click(View().MainImage, MouseButton::Left);
    EXPECT_EQ(Runs(View().menu.mnuOpen), 1);
}

TEST_F(MouseTest, TheRightButtonOpensTheEditMenuOnAnImage) {
    StartWithPicture(100, 80);
    Count(View().menu.mnuCopy);
    toolkit.ChooseFromPopup("&Copy");
    Click(View().MainImage, MouseButton::Right);
    app.DoEvents();
    ASSERT_EQ(toolkit.Popups().size(), 1U);
    EXPECT_EQ(toolkit.Popups()[0].menu, View().menu.mnuEdit.Peer());
    EXPECT_EQ(toolkit.Popups()[0].defaultEntry, View().menu.mnuCopy.Peer());
    EXPECT_EQ(Runs(View().menu.mnuCopy), 1);
}

TEST_F(MouseTest, WithoutAnImageItOpensTheFileMenu) {
    ASSERT_TRUE(Start());
    Click(View(), MouseButton::Right, ShiftMask::Shift);
    Click(View().picFrame, MouseButton::Right);
    ASSERT_EQ(toolkit.Popups().size(), 2U);
    EXPECT_EQ(toolkit.Popups()[0].menu, View().menu.mnuFile.Peer());
    EXPECT_EQ(toolkit.Popups()[0].defaultEntry, View().menu.mnuExit.Peer());
    EXPECT_EQ(toolkit.Popups()[1].menu, View().menu.mnuFile.Peer());
}

TEST_F(MouseTest, TheButtonShowsTheImageOnTheFullScreen) {
    StartWithPicture(1000, 900);
    Count(View().menu.mnuFullScreen);
    Count(View().menu.mnuAnimatedGIF);
    View().CmdFullScreen.SetFocus();
    View().CmdFullScreen.Deliver(forms::ClickEvent{});
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 1);
    EXPECT_EQ(Runs(View().menu.mnuAnimatedGIF), 0);
    EXPECT_EQ(View().ActiveControl(), &View().PictureTemp);
}

TEST_F(MouseTest, TheButtonShowsAnAnimationAsSuch) {
    PutPicture("C:\\p\\x.GIF", 20, 20);
    ASSERT_TRUE(Start("C:\\p\\x.GIF"));
    Count(View().menu.mnuFullScreen);
    Count(View().menu.mnuAnimatedGIF);
    View().CmdFullScreen.Deliver(forms::ClickEvent{});
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 0);
    EXPECT_EQ(Runs(View().menu.mnuAnimatedGIF), 1);
}

TEST_F(MouseTest, TheButtonHandsTheFocusOnWhenTheMouseLeavesIt) {
    StartWithPicture(1000, 900);
    Count(View().menu.mnuFullScreen);
    View().CmdFullScreen.SetFocus();
    Mouse(View().CmdFullScreen, MouseAction::Up, MouseButton::Left);
    EXPECT_EQ(View().ActiveControl(), &View().PictureTemp);
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 0);
}

TEST_F(MouseTest, TheButtonIsCalledFullScreenView) {
    ASSERT_TRUE(Start());
    EXPECT_EQ(View().CmdFullScreen.Caption.Get(), "Full Screen View");
}

TEST_F(MouseTest, TheTopmostEntryTogglesMarkSettingAndWindow) {
    ASSERT_TRUE(Start());
    for (const bool on : {true, false, true}) {
        Choose(View().menu.mnuTopmost);
        EXPECT_EQ(View().menu.mnuTopmost.Checked.Get(), on);
        EXPECT_EQ(module.config.TopMostWindow, on);
        EXPECT_EQ(Window().topmost, on);
    }
}

TEST_F(MouseTest, NoEntryOfTheViewWorksDuringWork) {
    StartWithPicture(100, 80);
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    for (const char* name : {"mnuTopmost", "mnuClear", "mnuReloadImage", "mnuExit"})
        EXPECT_FALSE(Choose(*Entry(name))) << name;
    EXPECT_FALSE(View().menu.mnuTopmost.Checked);
    EXPECT_FALSE(module.config.TopMostWindow);
    EXPECT_EQ(module.CurrentImage, ImagePath);
    EXPECT_EQ(platform.faults.Calls(headless::Service::Pictures), 1);
    EXPECT_TRUE(module.Busy()) << "the work goes on";
}

}  // namespace
}  // namespace tavrix::test
