#include <gtest/gtest.h>

#include "shows/StageTest.h"
#include "shows/saver/StartHostedSaver.h"
#include "shows/stage/StageBackground.h"

namespace tavrix::test {
namespace {

namespace KeyCode = forms::KeyCode;
namespace MouseButton = forms::MouseButton;
using forms::MouseAction;

/// A saver in a window of somebody else's, with three slides of a second each.
class HostedSaverTest : public StageTest {
  protected:
    static constexpr const char* Show = "C:\\s\\s.tvs";

    HostedSaverTest() {
        platform.files.ChangeFolder("C:\\");
        PutShow(3);
    }

    void PutShow(int slides, int interval = 1, const std::string& sound = "") {
        std::string text = "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n" +
                           std::string(sound.empty() ? "0" : "1") + "\r\n\"" + sound + "\"\r\n0\r\n0\r\n" +
                           std::to_string(interval) + "\r\n0\r\n-1\r\n-1\r\n0\r\n0\r\n";
        for (int i = 0; i < slides; ++i) {
            PutPicture(PathOf(i), FirstWidth + i, Height);
            text += "\"" + PathOf(i) + "\"\r\n\"A description\"\r\n";
        }
        platform.disks.PutFile(Show, text);
    }
    std::string Start(bool first = true, const std::string& path = Show) {
        return StartHostedSaver(module, path, {.first = first});
    }
    [[nodiscard]] int SoundsStarted() const {
        int started = 0;
        for (const std::string& call : platform.faults.Log())
            if (call.starts_with("Sound.Play")) ++started;
        return started;
    }
};

TEST_F(HostedSaverTest, PlaysTheShowItIsGivenInALoop) {
    EXPECT_EQ(Start(), "");
    EXPECT_EQ(Shown(), 0);
    for (const int next : {1, 2, 0, 1}) {
        EXPECT_FALSE(Advance(1000));
        EXPECT_EQ(Shown(), next);
    }
    EXPECT_EQ(Stage().Image1.ToolTip.Get(), "");
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\s");
}

TEST_F(HostedSaverTest, PlaysTheShowOfTheSettingsOtherwise) {
    platform.store.Set("CurrentSaver", Show);
    EXPECT_EQ(Start(true, ""), "");
    EXPECT_EQ(Shown(), 0);
}

TEST_F(HostedSaverTest, SettingsAreRead) {
    Setting("BackgroundColor", "1");
    Setting("ResumeLastDisplayed", "True");
    Setting("ImageLastDisplayed", "2");
    EXPECT_EQ(Start(), "");
    EXPECT_EQ(Shown(), 2);
    EXPECT_EQ(Stage().BackColor.Get(), StageBackground(1));
}

TEST_F(HostedSaverTest, WithoutAnythingToPlayThereIsNoStageAndAReason) {
    EXPECT_EQ(Start(true, ""), "no slide show has been chosen in the screen saver settings");
    PutShow(0);
    EXPECT_EQ(Start(), "there are no pictures in C:\\s\\s.tvs");
    EXPECT_FALSE(Playing());
}

TEST_F(HostedSaverTest, AShowThatIsGoneIsToldOf) {
    Expect({.text = "Unable to open Screen Saver file.\r\n\r\nFile not found...",
            .icon = forms::BoxIcon::Stop,
            .systemModal = true});
    EXPECT_EQ(Start(true, "C:\\s\\none.tvs"), "there are no pictures in C:\\s\\none.tvs");
}

TEST_F(HostedSaverTest, NothingThatComesToItEndsIt) {
    EXPECT_EQ(Start(), "");
    const auto trySlide = [this] {
        for (const int key : {int(KeyCode::Escape), int(KeyCode::Space), int(KeyCode::Delete), int('P')})
            EXPECT_FALSE(Press(key));
        for (int i = 0; i < 50; ++i) {
            const forms::MouseEvent move{MouseAction::Move, 0, 0, i, 30};
            EXPECT_FALSE(Ends([&] { Stage().Image1.Deliver(move); }));
        }
        for (const int button : {MouseButton::Left, MouseButton::Right})
            EXPECT_FALSE(Ends([&] {
                Stage().Image1.Deliver(forms::MouseEvent{MouseAction::Up, button, 0, 30, 30});
            }));
        EXPECT_FALSE(Ends([this] { Stage().Deliver(forms::CloseEvent{}); }));
        EXPECT_FALSE(Ends([this] { Stage().FormUnload(); }));
    };
    trySlide();
    EXPECT_EQ(Shown(), 0);
    EXPECT_FALSE(Advance(1000));
    EXPECT_EQ(Shown(), 1);
    trySlide();
    EXPECT_EQ(Shown(), 1);
    EXPECT_FALSE(Advance(1000));
    EXPECT_EQ(Shown(), 2);
}

TEST_F(HostedSaverTest, TitleAndPasswordAreNotThoseOfASaverOfItsOwn) {
    module.UsePassword = true;
    platform.system.platformId = 1;
    EXPECT_EQ(Start(), "");
    EXPECT_EQ(module.OsPlatformId, 1);
    EXPECT_EQ(Stage().Caption.Get(), "Tavrix Screen Saver");
    EXPECT_FALSE(Stage().TimerPass.Enabled);
    EXPECT_FALSE(Press(KeyCode::Escape));
    EXPECT_EQ(platform.saverPassword.asked, 0);
    EXPECT_TRUE(platform.saverPassword.told.empty());
}

TEST_F(HostedSaverTest, TheFirstRemembersItsSlideAndWritesNothingElse) {
    Setting("ResumeLastDisplayed", "True");
    EXPECT_EQ(Start(), "");
    EXPECT_FALSE(Advance(2000));
    EXPECT_EQ(Saved("ImageLastDisplayed"), "2");
    EXPECT_EQ(Saved("LastSlideShow"), "");
    EXPECT_EQ(Saved("RecentShow1"), "");
    EXPECT_TRUE(platform.shell.recent.empty());
}

TEST_F(HostedSaverTest, TheOthersRememberNone) {
    Setting("ResumeLastDisplayed", "True");
    EXPECT_EQ(Start(false), "");
    EXPECT_FALSE(Advance(2000));
    EXPECT_EQ(Shown(), 2);
    EXPECT_EQ(Saved("ImageLastDisplayed"), "");
}

TEST_F(HostedSaverTest, TheFirstAloneIsHeard) {
    platform.disks.PutFile("C:\\a.wav", "");
    PutShow(2, 1, "C:\\a.wav");
    EXPECT_EQ(Start(false), "");
    EXPECT_EQ(SoundsStarted(), 0);
}

TEST_F(HostedSaverTest, TheFirstIsHeard) {
    platform.disks.PutFile("C:\\a.wav", "");
    PutShow(2, 1, "C:\\a.wav");
    EXPECT_EQ(Start(true), "");
    EXPECT_EQ(SoundsStarted(), 1);
}

TEST_F(HostedSaverTest, AFirstPictureThatCannotBeShownIsLeftOut) {
    platform.disks.Remove(PathOf(0));
    headless::ExpectedBox box{
        .text = "Unable to view image:\r\n\r\n" + PathOf(0) + "\r\n\r\nFile not found...",
        .icon = forms::BoxIcon::Stop,
        .systemModal = true};
    box.whileOpen = [this] { EXPECT_NE(toolkit.VisibleWindow("FullViewFrm"), nullptr); };
    Expect(box);
    EXPECT_EQ(Start(), "");
    EXPECT_NE(toolkit.VisibleWindow("FullViewFrm"), nullptr);
    EXPECT_FALSE(Advance(1000));
    EXPECT_EQ(Shown(), 1);
    EXPECT_FALSE(module.Busy());
}

TEST_F(HostedSaverTest, ALaterOneIsLeftOutToo) {
    EXPECT_EQ(Start(), "");
    platform.disks.Remove(PathOf(1));
    ExpectFailure(PathOf(1), "File not found");
    EXPECT_FALSE(Advance(1000));
    EXPECT_EQ(Shown(), -1);
    EXPECT_TRUE(Stage().Image1.Picture.Get().Empty()) << "the former picture went before the next was loaded";
    EXPECT_FALSE(Advance(1000));
    EXPECT_EQ(Shown(), 2);
}

TEST_F(HostedSaverTest, AnIntervalOfNoneIsFiveSeconds) {
    PutShow(3, 0);
    EXPECT_EQ(Start(), "");
    EXPECT_FALSE(Advance(4999));
    EXPECT_EQ(Shown(), 0);
    EXPECT_FALSE(Advance(1));
    EXPECT_EQ(Shown(), 1);
}

TEST_F(HostedSaverTest, AnIntervalAbove32SecondsIsNone) {
    PutShow(3, 33);
    EXPECT_EQ(Start(), "");
    EXPECT_FALSE(Advance(10'000'000));
    EXPECT_EQ(Shown(), 0);
}

}  // namespace
}  // namespace tavrix::test
