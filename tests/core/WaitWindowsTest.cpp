#include "core/WaitFrm.h"
#include "dialogs/WaitCopyFrm.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using namespace std::chrono_literals;

class OtherWindow final : public forms::Form {
  public:
    explicit OtherWindow(forms::Application& application) : Form(application, {.name = "OtherFrm"}) {}
};

class WaitFrmTest : public ProgramFixture {};

TEST_F(WaitFrmTest, SaysWhatItIs) {
    auto& wait = app.Load<WaitFrm>();
    wait.Show();
    EXPECT_EQ(wait.Name(), "WaitFrm");
    EXPECT_EQ(toolkit.VisibleWindow("WaitFrm")->title, "Tavrix - [Please Wait...]");
    EXPECT_EQ(wait.lblWait.Caption.Get(), "Please wait...");
    EXPECT_FALSE(wait.ImageOn.Visible.Get());
    EXPECT_FALSE(wait.ImageOff.Visible.Get());
    EXPECT_TRUE(wait.ImageShow.Visible.Get());
}

TEST_F(WaitFrmTest, ItsTwoPicturesAlternate) {
    auto& wait = app.Load<WaitFrm>();
    wait.Show();
    EXPECT_TRUE(wait.TimerAnimate.Enabled.Get());
    const Picture on = wait.ImageOn.Picture;
    const Picture off = wait.ImageOff.Picture;
    ASSERT_FALSE(on.Empty());
    ASSERT_FALSE(off.Empty());
    EXPECT_NE(on, off);
    Picture shown = wait.ImageShow.Picture;
    const forms::Milliseconds interval(wait.TimerAnimate.Interval.Get());
    for (int tick = 0; tick < 4; ++tick) {
        const int yields = toolkit.Yields();
        toolkit.Advance(interval);
        EXPECT_EQ(wait.ImageShow.Picture.Get(), shown == on ? off : on);
        EXPECT_EQ(toolkit.Yields(), yields + 1);
        shown = wait.ImageShow.Picture;
    }
    toolkit.Advance(interval - 1ms);
    EXPECT_EQ(wait.ImageShow.Picture.Get(), shown);
}

TEST_F(WaitFrmTest, ItsTimerStopsWithIt) {
    auto& wait = app.Load<WaitFrm>();
    wait.Show();
    bool cancel = false;
    wait.Form_Unload(cancel);
    EXPECT_FALSE(cancel);
    EXPECT_FALSE(wait.TimerAnimate.Enabled.Get());
    UnloadWaitWindow(app);
    const int yields = toolkit.Yields();
    toolkit.Advance(1h);
    EXPECT_EQ(toolkit.Yields(), yields);
}

TEST_F(WaitFrmTest, MayBeUnloadedFromItsOwnTick) {
    auto& wait = app.Load<WaitFrm>();
    wait.Show();
    toolkit.AtYield(1, [this] { UnloadWaitWindow(app); });
    toolkit.Advance(1h);
    EXPECT_EQ(app.FormCount(), 0);
}

TEST_F(WaitFrmTest, UnloadingItLeavesOtherWindowsAlone) {
    UnloadWaitWindow(app);  // nothing is loaded
    app.Load<OtherWindow>();
    UnloadWaitWindow(app);
    EXPECT_EQ(app.FormCount(), 1);
    app.Load<WaitFrm>();
    app.Load<WaitFrm>();
    app.Load<OtherWindow>();
    UnloadWaitWindow(app);
    EXPECT_EQ(app.FormCount(), 3);
    EXPECT_EQ(app.FormAt(1).Name(), "WaitFrm");  // only the first of them
    UnloadWaitWindow(app);
    EXPECT_EQ(app.FormAt(0).Name(), "OtherFrm");
    EXPECT_EQ(app.FormAt(1).Name(), "OtherFrm");
}

class WaitCopyFrmTest : public ProgramFixture {};

TEST_F(WaitCopyFrmTest, SaysWhatItIs) {
    auto& wait = app.Load<WaitCopyFrm>(module);
    wait.Show();
    EXPECT_EQ(wait.Name(), "WaitCopyFrm");
    EXPECT_EQ(toolkit.VisibleWindow("WaitCopyFrm")->title, "Copying files...");
    EXPECT_FALSE(toolkit.VisibleWindow("WaitCopyFrm")->modal);
    EXPECT_EQ(wait.lblMsg.Caption.Get(), "Copying files, please wait...");
    EXPECT_EQ(wait.CmdCancel.Caption.Get(), "&Cancel");
    EXPECT_EQ(wait.CmdCancel.ToolTip.Get(), "Click here to cancel file copy.");
}

TEST_F(WaitCopyFrmTest, ItsButtonAsksTheLoopToStop) {
    auto& wait = app.Load<WaitCopyFrm>(module);
    wait.Show();
    EXPECT_FALSE(module.CancelCopy);
    wait.CmdCancel.Deliver(forms::ClickEvent{});
    EXPECT_TRUE(module.CancelCopy);
    EXPECT_NE(toolkit.VisibleWindow("WaitCopyFrm"), nullptr);
}

TEST_F(WaitCopyFrmTest, AnEarlierCancelIsForgotten) {
    module.CancelCopy = true;
    app.Load<WaitCopyFrm>(module);
    EXPECT_FALSE(module.CancelCopy);
}

}  // namespace
}  // namespace tavrix::test
