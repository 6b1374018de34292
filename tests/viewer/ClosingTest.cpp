#include "OneProcess.h"
#include "ViewerTest.h"
#include "dialogs/WaitCopyFrm.h"
#include "support/QuietMachine.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;
using headless::Service;

class ClosingTest : public ViewerTest {
  protected:
    void ExpectDiscard(Answer reply) {
        Expect({.text = "The current file has not been saved.\r\n\r\nDiscard changes and exit?",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo,
                .reply = reply});
    }
    bool Close() {
        return Ends([this] { View().Deliver(forms::CloseEvent{}); });
    }
};

TEST_F(ClosingTest, TheExitEntryEndsTheProcess) {
    ASSERT_TRUE(Start());
    EXPECT_TRUE(Choose(View().menu.mnuExit));
    EXPECT_TRUE(platform.process.ended);
}

TEST_F(ClosingTest, AnUnsavedImageIsAskedAboutOnEveryWayOut) {
    ASSERT_TRUE(Start());
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    ExpectDiscard(Answer::No);
    EXPECT_FALSE(Close());
    ExpectDiscard(Answer::No);
    EXPECT_FALSE(Press(forms::KeyCode::Escape));
    ExpectDiscard(Answer::No);
    EXPECT_FALSE(Choose(View().menu.mnuExit));
    EXPECT_FALSE(platform.process.ended);
    EXPECT_EQ(module.CurrentImage, "C:\\Temp\\Untitled.BMP");
    ExpectIdle();
    EXPECT_EQ(Saved("MainPosX"), "");

    ExpectDiscard(Answer::Yes);
    EXPECT_TRUE(Press(forms::KeyCode::Escape));
}

TEST_F(ClosingTest, ASavedImageIsNot) {
    StartWithPicture(10, 10);
    EXPECT_TRUE(Close());
}

TEST_F(ClosingTest, TheFrameClosesAlsoDuringWork) {
    ASSERT_TRUE(Start());
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    EXPECT_TRUE(Close());
}

TEST_F(ClosingTest, TheHelpGoesThenTheSettingsAreWrittenThenTheProcessEnds) {
    StartWithPicture(10, 10);
    platform.help.calls.clear();
    const std::size_t before = platform.faults.Log().size();
    EXPECT_TRUE(Close());
    EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
    ASSERT_EQ(platform.help.calls.size(), 1U);
    EXPECT_EQ(platform.help.calls[0].command, HelpCommand::Quit);
    EXPECT_EQ(platform.help.calls[0].file, "C:\\Tavrix\\TAVRIX.HLP");
    const auto& log = platform.faults.Log();
    const auto help = std::find(log.begin() + static_cast<std::ptrdiff_t>(before), log.end(),
                                "Help.Show C:\\Tavrix\\TAVRIX.HLP");
    const auto write = std::find(log.begin() + static_cast<std::ptrdiff_t>(before), log.end(),
                                 "Profile.Write C:\\Tavrix\\tavrix.ini Viewer");
    ASSERT_NE(help, log.end());
    ASSERT_NE(write, log.end());
    EXPECT_LT(help, write);
}

TEST_F(ClosingTest, TheFileHoldsTheStateAfterwards) {
    StartWithPicture(10, 10);
    Place({20, 30, 700, 500});
    Choose(View().menu.mnuTopmost);
    EXPECT_TRUE(Close());
    EXPECT_EQ(Saved("MainPosX"), "300");
    EXPECT_EQ(Saved("MainPosY"), "450");
    EXPECT_EQ(Saved("MainSizeX"), "10500");
    EXPECT_EQ(Saved("MainSizeY"), "7500");
    EXPECT_EQ(Saved("TopMostWindow"), "True");
    EXPECT_EQ(Saved("LastOpenedFile"), ImagePath);
    EXPECT_EQ(Saved("Recent1"), ImagePath);
}

TEST_F(ClosingTest, AMaximisedWindowKeepsTheOldPlaceInTheFile) {
    Setting("MainPosX", "123");
    ASSERT_TRUE(Start());
    Place({0, 0, 1280, 1024}, forms::WindowState::Maximized);
    EXPECT_TRUE(Close());
    EXPECT_EQ(Saved("MainPosX"), "123");
    EXPECT_EQ(Saved("MainSizeX"), "");
}

TEST_F(ClosingTest, SoDoesAMinimisedOne) {
    Setting("MainPosX", "123");
    ASSERT_TRUE(Start());
    Place({0, 0, 160, 24}, forms::WindowState::Minimized);
    EXPECT_TRUE(Close());
    EXPECT_EQ(Saved("MainPosX"), "123");
}

TEST_F(ClosingTest, AnUnsavedImageIsNotTheLastOpenedOne) {
    StartWithPicture(10, 10);
    Setting("LastOpenedFile", "C:\\p\\before.bmp");
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    PutPicture("C:\\Temp\\Untitled.BMP", 5, 5);
    ExpectDiscard(Answer::Yes);
    EXPECT_TRUE(Close());
    EXPECT_EQ(Saved("LastOpenedFile"), "C:\\p\\before.bmp");
    EXPECT_FALSE(platform.disks.Exists("C:\\Temp\\Untitled.BMP"));
}

TEST_F(ClosingTest, OtherWindowsDoNotKeepTheProcess) {
    ASSERT_TRUE(Start());
    app.Load<WaitCopyFrm>(module).Show();
    EXPECT_TRUE(Close());
    EXPECT_TRUE(platform.process.ended);
}

TEST_F(ClosingTest, FailuresOnTheWayOutAreSkipped) {
    StartWithPicture(10, 10);
    platform.faults.FailAlways(Service::Help, "Show", ErrorNumber::FileNotFound);
    platform.faults.FailAlways(Service::Profile, "Write", ErrorNumber::DiskFull);
    platform.faults.FailAlways(Service::Files, "Delete", ErrorNumber::PermissionDenied);
    EXPECT_TRUE(Close());
    EXPECT_TRUE(platform.process.ended);
}

struct PlaceOnScreen {
    forms::ScreenInfo screen;
    PixelRect outer;
};

class RoundTripTest : public ::testing::TestWithParam<PlaceOnScreen> {};

TEST_P(RoundTripTest, ASavedPlaceDoesNotDrift) {
    headless::HeadlessServices machine;
    MakeQuiet(machine);
    machine.disks.PutFile("C:\\Tavrix\\tavrix.ini",
                          "[Viewer]\r\nSaveWindowSize=True\r\nAutosizeWindow=False\r\nStartupDialog=0\r\n");
    const auto saved = [&machine] {
        const ProfileSection section = machine.profile.Read("Viewer", "C:\\Tavrix\\tavrix.ini");
        std::vector<std::string> place;
        for (const char* key : {"MainPosX", "MainPosY", "MainSizeX", "MainSizeY"})
            place.push_back(section.Read(key));
        return place;
    };
    {
        OneProcess first(machine);
        first.toolkit.screen = GetParam().screen;
        ASSERT_TRUE(first.Start());
        first.View().Deliver(forms::PlacementEvent{GetParam().outer, forms::WindowState::Normal});
        ASSERT_TRUE(first.Close());
    }
    std::vector<std::string> place = saved();
    for (int start = 0; start < 3; ++start) {
        OneProcess next(machine);
        next.toolkit.screen = GetParam().screen;
        ASSERT_TRUE(next.Start());
        const auto* window = next.toolkit.VisibleWindow("MainViewFrm");
        EXPECT_EQ(window->placement, GetParam().outer);
        // The window manager tells where the window came to be.
        next.View().Deliver(forms::PlacementEvent{window->placement, forms::WindowState::Normal});
        ASSERT_TRUE(next.Close());
        // The file is read in whole twips; from then on the text stays as it is.
        if (start != 0) {
            EXPECT_EQ(saved(), place) << "start " << start;
        }
        place = saved();
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, RoundTripTest,
                         ::testing::Values(PlaceOnScreen{{1280, 1024, 15, 15, 24}, {37, 41, 701, 503}},
                                           PlaceOnScreen{{2560, 2048, 7.5F, 7.5F, 24}, {37, 41, 1301, 1003}},
                                           PlaceOnScreen{{1600, 1200, 12, 12, 24}, {7, 1, 899, 777}},
                                           PlaceOnScreen{{1366, 768, 1440 / 110.0F, 1440 / 110.0F, 24},
                                                         {7, 1, 899, 701}}));

}  // namespace
}  // namespace tavrix::test
