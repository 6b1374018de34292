#include "ViewerTest.h"
#include "settings/frmTip.h"

namespace tavrix::test {
namespace {

using forms::WindowState;
using headless::Service;

/// What opens with the first activation is noted, in order.
class ActivationTest : public ViewerTest {
  protected:
    ActivationTest() {
        beforeShow = [this](MainViewFrm& view) {
            module.ShowDisplayDialog = showDisplayDialog;
            for (forms::Menu* entry : {&view.menu.mnuAbout, &view.menu.mnuSlideShow, &view.menu.mnuOpen,
                                       &view.menu.mnuThumbnailBrowse, &view.menu.mnuTipOfDay}) {
                entry->Install([this, entry] {
                    opened.push_back(entry->Name());
                    topmost.push_back(Window().topmost);
                    waitWindow = waitWindow || toolkit.VisibleWindow("WaitFrm") != nullptr;
                });
            }
        };
    }

    bool showDisplayDialog = false;
    bool waitWindow = false;
    std::vector<std::string> opened;
    std::vector<bool> topmost;
};

using Names = std::vector<std::string>;

struct DialogCase {
    const char* always;
    const char* commandLine;
    bool firstRun;
    Names opened;
};

class StartDialogTest : public ActivationTest, public ::testing::WithParamInterface<DialogCase> {};

TEST_P(StartDialogTest, OpensWhatTheSettingsTheWordAndTheFirstRunAskFor) {
    Setting("StartupDialog", GetParam().always);
    if (GetParam().firstRun) platform.store.Set("ProgramRun", "0");
    ASSERT_TRUE(Start(GetParam().commandLine));
    EXPECT_EQ(opened, GetParam().opened);
    EXPECT_FALSE(waitWindow);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StartDialogTest,
    ::testing::Values(DialogCase{"0", "", false, Names{}}, DialogCase{"0", "", true, Names{"mnuAbout"}},
                      DialogCase{"1", "", false, Names{"mnuAbout"}},
                      DialogCase{"1", "A", true, Names{"mnuAbout"}},
                      DialogCase{"2", "", false, Names{"mnuSlideShow"}},
                      DialogCase{"3", "", false, Names{"mnuOpen"}},
                      DialogCase{"4", "", false, Names{"mnuThumbnailBrowse"}},
                      DialogCase{"4", "A", false, Names{"mnuAbout", "mnuThumbnailBrowse"}},
                      DialogCase{"2", "O", true, Names{"mnuAbout", "mnuSlideShow", "mnuOpen"}},
                      DialogCase{"3", "O", false, Names{"mnuOpen"}}));

TEST_F(ActivationTest, TheTipComesBeforeTheDialogs) {
    platform.store.values.erase("Show Tips at Startup");
    Setting("StartupDialog", "1");
    ASSERT_TRUE(Start());
    EXPECT_EQ(opened, (Names{"mnuTipOfDay", "mnuAbout"}));
    EXPECT_FALSE(waitWindow);
}

TEST_F(ActivationTest, TipsAreShownForAnyNumberButZero) {
    platform.store.Set("Show Tips at Startup", "-1");
    ASSERT_TRUE(Start());
    EXPECT_EQ(opened, Names{"mnuTipOfDay"});
}

class TipAtStartTest : public ViewerTest {};

TEST_F(TipAtStartTest, TheTipIsNotHiddenBehindATopmostWindow) {
    platform.disks.PutFile("C:\\Tavrix\\TIPOFDAY.DAT", "That there are tips?\n");
    Setting("TopMostWindow", "True");
    platform.store.Set("Show Tips at Startup", "1");
    std::vector<bool> topmost;
    toolkit.OnModal("frmTip", [&] {
        topmost.push_back(Window().topmost);
        app.Unload(*app.Loaded<frmTip>());
    });
    ASSERT_TRUE(Start());
    EXPECT_EQ(topmost, std::vector<bool>{false});
    EXPECT_TRUE(Window().topmost);
}

TEST_F(ActivationTest, OnlyTheFirstActivationCounts) {
    Setting("StartupDialog", "1");
    platform.store.Set("Show Tips at Startup", "1");
    ASSERT_TRUE(Start());
    opened.clear();
    EXPECT_FALSE(View().FirstActivation);
    View().Deliver(forms::ActivateEvent{});
    View().Form_Activate();
    EXPECT_EQ(opened, Names{});
}

TEST_F(ActivationTest, TheWaitWindowIsGoneForGood) {
    ASSERT_TRUE(Start());
    EXPECT_EQ(app.FormCount(), 1);
}

TEST_F(ActivationTest, TheDisplayDialogIsStartedWhileTheViewIsMinimised) {
    showDisplayDialog = true;
    Setting("WindowMaximized", "True");
    WindowState state = WindowState::Normal;
    platform.faults.AtNth(Service::Shell, 1, [&] { state = View().WindowState; });
    ASSERT_TRUE(Start());
    EXPECT_EQ(platform.shell.commands, Names{"rundll32.exe shell32.dll,Control_RunDLL desk.cpl,@0,3"});
    EXPECT_EQ(state, WindowState::Minimized);
    EXPECT_EQ(View().WindowState.Get(), WindowState::Normal);
}

TEST_F(ActivationTest, AFailureToStartTheDisplayDialogIsTold) {
    showDisplayDialog = true;
    platform.shell.canRun = false;
    WindowState state = WindowState::Normal;
    Expect({.text = "An error occurred while trying to open the display properties dialog...",
            .whileOpen = [&] { state = View().WindowState; }});
    ASSERT_TRUE(Start());
    EXPECT_EQ(state, WindowState::Minimized);
    EXPECT_EQ(View().WindowState.Get(), WindowState::Normal);
}

TEST_F(ActivationTest, TheDisplayDialogIsNotStartedUnasked) {
    ASSERT_TRUE(Start());
    EXPECT_EQ(platform.shell.commands, Names{});
}

}  // namespace
}  // namespace tavrix::test
