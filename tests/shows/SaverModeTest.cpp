#include <gtest/gtest.h>

#include <random>

#include "shows/StageTest.h"

namespace tavrix::test {
namespace {

namespace KeyCode = forms::KeyCode;
namespace MouseButton = forms::MouseButton;
using forms::MouseAction;
using headless::Service;

/// A saver that plays a show of one slide, which never steps.
class SaverModeTest : public StageTest {
  protected:
    SaverModeTest() { module.ScreenSaverMode = true; }

    void Start(int slides = 1) {
        PutSlides(slides);
        ASSERT_FALSE(PlayStarted());
    }
    /// The mouse moves over the image or beside it; whether the process ended.
    bool Move(bool onImage = true) {
        const forms::MouseEvent move{MouseAction::Move, 0, 0, ++moves_, 30};
        return Ends([&] {
            if (onImage) {
                Stage().Image1.Deliver(move);
            } else {
                Stage().Deliver(move);
            }
        });
    }
    bool Moves(int count) {
        for (int i = 0; i < count; ++i)
            if (Move(i % 2 == 0)) return true;
        return false;
    }
    bool Click(int button, bool onImage = true) {
        const forms::MouseEvent up{MouseAction::Up, button, 0, 30, 30};
        return Ends([&] {
            if (onImage) {
                Stage().Image1.Deliver(forms::MouseEvent{MouseAction::Down, button, 0, 30, 30});
                Stage().Image1.Deliver(up);
            } else {
                Stage().Deliver(up);
            }
        });
    }
    bool AskToClose() {
        return Ends([&] { Stage().Deliver(forms::CloseEvent{}); });
    }

  private:
    int moves_ = 0;
};

TEST_F(SaverModeTest, MovesBeyondTheSensitivityEndIt) {
    Start();
    EXPECT_FALSE(Moves(5));
    EXPECT_TRUE(Move());
}

TEST_F(SaverModeTest, AtTheLeastSensitivityTheThirdMoveEndsIt) {
    module.config.MouseSensitivity = 1;
    Start();
    EXPECT_FALSE(Moves(2));
    EXPECT_TRUE(Move(false));
}

TEST_F(SaverModeTest, AtTheGreatestItIsTheTwentySecond) {
    module.config.MouseSensitivity = 20;
    Start();
    EXPECT_FALSE(Moves(21));
    EXPECT_TRUE(Move());
}

TEST_F(SaverModeTest, TheCountRestartsAtTheMoveThatFindsMoreThanFiveSecondsPassed) {
    Start();
    EXPECT_FALSE(Moves(4));
    Advance(7000);
    EXPECT_EQ(Stage().MouseMoveCount, 4);
    EXPECT_FALSE(Move());
    EXPECT_EQ(Stage().MouseMoveCount, 0);
    EXPECT_FALSE(Moves(5));
    EXPECT_TRUE(Move());
}

TEST_F(SaverModeTest, TheFirstMoveIsTimedInWholeSeconds) {
    // Rounded down, rounded up, and halves to the even second.
    for (const auto& [first, lastThatCounts] :
         {std::pair{10'400, 15'000}, {20'600, 26'000}, {30'500, 35'000}, {41'500, 47'000}}) {
        if (!Playing()) Start();
        Stage().MouseMoveCount = 0;
        Stage().FirstMoveTime.reset();
        const auto moveAt = [&](int moment) {
            toolkit.Advance(Milliseconds(moment) - toolkit.Now());
            EXPECT_FALSE(Move());
        };
        moveAt(first);
        moveAt(lastThatCounts);
        EXPECT_EQ(Stage().MouseMoveCount, 2) << first;
        moveAt(lastThatCounts + 1);
        EXPECT_EQ(Stage().MouseMoveCount, 0) << first;
    }
}

TEST_F(SaverModeTest, StrayMovesNeverAddUp) {
    Start();
    for (int i = 0; i < 500; ++i) {
        ASSERT_FALSE(Move(i % 3 == 0)) << i;
        Advance(1500);
    }
}

TEST_F(SaverModeTest, ASlideChangeForgetsTheMoves) {
    Start(3);
    EXPECT_FALSE(Moves(5));
    EXPECT_FALSE(Advance(5000));
    EXPECT_EQ(Shown(), 1);
    EXPECT_EQ(Stage().MouseMoveCount, 0);
    EXPECT_FALSE(Moves(5));
    EXPECT_TRUE(Move());
}

TEST_F(SaverModeTest, MovesWhileASlideChangesAreTheWindowSystems) {
    Start(3);
    for (const int yield : {1, 2, 3}) {
        toolkit.AtYield(yield, [this] {
            if (!Stage().SlideChanging) return;
            EXPECT_FALSE(Moves(30));
            EXPECT_EQ(Stage().MouseMoveCount, 0);
        });
    }
    EXPECT_FALSE(Advance(5000));
    EXPECT_EQ(Shown(), 1);
}

TEST_F(SaverModeTest, AnActivationForgetsTheMoves) {
    Start();
    EXPECT_FALSE(Moves(5));
    Stage().Form_Activate();
    EXPECT_FALSE(Moves(5));
    EXPECT_TRUE(Move());
}

TEST_F(SaverModeTest, NoMoveEndsAShow) {
    module.ScreenSaverMode = false;
    Start();
    EXPECT_FALSE(Moves(100));
}

class EndOfSaver : public SaverModeTest, public ::testing::WithParamInterface<int> {};

TEST_P(EndOfSaver, IsAnyKey) {
    Start(3);
    EXPECT_TRUE(Press(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Keys, EndOfSaver,
                         ::testing::Values(KeyCode::Other, KeyCode::Space, KeyCode::Right, KeyCode::Home,
                                           KeyCode::Delete, KeyCode::F1, KeyCode::Escape, 'P', 16, 17, 18));

TEST_F(SaverModeTest, AButtonOnTheImageEndsIt) {
    Start(3);
    EXPECT_TRUE(Click(MouseButton::Left));
}

TEST_F(SaverModeTest, TheRightButtonBesideTheImageEndsItToo) {
    Start(3);
    EXPECT_TRUE(Click(MouseButton::Right, false));
}

TEST_F(SaverModeTest, ACloseRequestEndsIt) {
    Start(3);
    EXPECT_TRUE(AskToClose());
}

TEST_F(SaverModeTest, NothingEndsItWhileASlideChanges) {
    Start(3);
    int heard = 0;
    for (const int yield : {1, 2, 3}) {
        toolkit.AtYield(yield, [this, &heard] {
            if (!module.Busy()) return;
            ++heard;
            EXPECT_FALSE(Press(KeyCode::Escape));
            EXPECT_FALSE(Click(MouseButton::Left));
            EXPECT_FALSE(AskToClose());
        });
    }
    EXPECT_FALSE(Advance(5000));
    EXPECT_GE(heard, 2);
    EXPECT_EQ(Shown(), 1);
    EXPECT_FALSE(Advance(5000));
    EXPECT_EQ(Shown(), 2);
    EXPECT_TRUE(Press(KeyCode::Escape));
}

TEST_F(SaverModeTest, ThePointerStaysHiddenForHours) {
    Start(3);
    for (int i = 0; i < 1000; ++i) {
        EXPECT_FALSE(Advance(3700));
        EXPECT_FALSE(Move());
        ASSERT_TRUE(PointerHidden());
    }
    EXPECT_FALSE(Stage().TimerMouse.Enabled);
}

TEST_F(SaverModeTest, AStoredSlideBeyondTheEndIsTheFirst) {
    module.config.ResumeLastDisplayed = true;
    module.config.ImageLastDisplayed = 3;
    Start(3);
    EXPECT_EQ(Shown(), 0);
}

/// A saver that a password guards, on a desktop that leaves that to it.
class SaverPasswordTest : public SaverModeTest {
  protected:
    using Told = std::vector<bool>;

    SaverPasswordTest() {
        module.UsePassword = true;
        module.OsPlatformId = 1;
    }
    void ExpectOn() {
        EXPECT_TRUE(Playing());
        EXPECT_NE(toolkit.VisibleWindow("FullViewFrm"), nullptr);
        EXPECT_TRUE(Window().topmost);
        EXPECT_TRUE(PointerHidden());
        EXPECT_FALSE(module.Busy());
        EXPECT_FALSE(Stage().SlideChanging);
        EXPECT_TRUE(Stage().SlideTimer.Enabled);
        EXPECT_TRUE(platform.saverPassword.running);
    }
    [[nodiscard]] int Asked() const { return platform.saverPassword.asked; }

    headless::ScriptedSaverPassword& password = platform.saverPassword;
};

TEST_F(SaverPasswordTest, WithoutAGracePeriodItIsAskedAtOnce) {
    Start();
    ExpectOn();
    EXPECT_FALSE(Press(KeyCode::Escape));
    EXPECT_EQ(Asked(), 1);
    ExpectOn();
    password.right = true;
    EXPECT_TRUE(Press(KeyCode::Escape));
    EXPECT_EQ(Asked(), 2);
    EXPECT_EQ(password.told, (Told{true, false}));
}

TEST_F(SaverPasswordTest, WithinTheGracePeriodItIsNotAsked) {
    module.config.PasswordDelay = 2;
    Start();
    EXPECT_FALSE(Advance(9999));
    EXPECT_TRUE(Press(KeyCode::Escape));
    EXPECT_EQ(Asked(), 0);
    EXPECT_EQ(password.told, (Told{true, false}));
}

struct Grace {
    std::int16_t delay;
    int milliseconds;
};
class GracePeriod : public SaverPasswordTest, public ::testing::WithParamInterface<Grace> {};

TEST_P(GracePeriod, EndsAfterItsTime) {
    module.config.PasswordDelay = GetParam().delay;
    Start();
    EXPECT_FALSE(Advance(GetParam().milliseconds - 1));
    EXPECT_TRUE(Stage().TimerPass.Enabled);
    EXPECT_FALSE(Advance(1));
    EXPECT_FALSE(Press(KeyCode::Escape));
    EXPECT_EQ(Asked(), 1);
    ExpectOn();
}

INSTANTIATE_TEST_SUITE_P(Delays, GracePeriod,
                         ::testing::Values(Grace{1, 5000}, Grace{2, 10'000}, Grace{3, 30'000},
                                           Grace{4, 60'000}));

TEST_F(SaverPasswordTest, EveryWayOutAsks) {
    Start();
    EXPECT_FALSE(Click(MouseButton::Left));
    EXPECT_FALSE(Click(MouseButton::Right, false));
    EXPECT_FALSE(AskToClose());
    EXPECT_FALSE(Moves(6));
    EXPECT_EQ(Asked(), 4);
    EXPECT_EQ(Stage().MouseMoveCount, 0);
    ExpectOn();
}

TEST_F(SaverPasswordTest, AfterAWrongOneTheShowGoesOn) {
    Start(3);
    password.whileAsking = [this] {
        EXPECT_FALSE(PointerHidden());
        Advance(60'000);  // the slide stands meanwhile
        EXPECT_EQ(Shown(), 0);
    };
    EXPECT_FALSE(Moves(5));
    EXPECT_FALSE(AskToClose());
    EXPECT_EQ(Stage().MouseMoveCount, 0);
    ExpectOn();
    EXPECT_FALSE(Advance(5000));
    EXPECT_EQ(Shown(), 1);
}

TEST_F(SaverPasswordTest, WhileItIsAskedNothingAsksAgain) {
    Start(3);
    password.whileAsking = [this] {
        EXPECT_FALSE(Press(KeyCode::Escape));
        EXPECT_FALSE(Click(MouseButton::Left));
        EXPECT_FALSE(AskToClose());
        EXPECT_FALSE(Moves(20));
    };
    EXPECT_FALSE(Press(KeyCode::Escape));
    EXPECT_EQ(Asked(), 1);
    ExpectOn();
    EXPECT_EQ(Stage().MouseMoveCount, 0);
    EXPECT_FALSE(Advance(5000));
    EXPECT_EQ(Shown(), 1);
}

TEST_F(SaverPasswordTest, AQuestionThatFailsIsAWrongPassword) {
    Start();
    password.right = true;
    platform.faults.FailAlways(Service::SaverPassword, "Verify", ErrorNumber::DeviceUnavailable);
    EXPECT_FALSE(Press(KeyCode::Escape));
    ExpectOn();
    platform.faults.Clear();
    EXPECT_TRUE(Press(KeyCode::Escape));
}

TEST_F(SaverPasswordTest, ASystemThatCannotBeHeldGetsNoSaver) {
    password.canHold = false;
    PutSlides(1);
    EXPECT_TRUE(PlayStarted());
    EXPECT_EQ(toolkit.VisibleWindow("FullViewFrm"), nullptr);
}

TEST_F(SaverPasswordTest, ADesktopThatGuardsItsOwnSaverIsNotAsked) {
    module.OsPlatformId = 2;
    Start();
    EXPECT_TRUE(Press(KeyCode::Escape));
    EXPECT_EQ(Asked(), 0);
    EXPECT_EQ(password.told, Told{});
}

TEST_F(SaverPasswordTest, WithoutAPasswordNothingIsAsked) {
    module.UsePassword = false;
    Start();
    EXPECT_TRUE(Press(KeyCode::Escape));
    EXPECT_EQ(Asked(), 0);
    EXPECT_EQ(password.told, Told{});
}

TEST_F(SaverPasswordTest, AShowIsNotGuarded) {
    module.ScreenSaverMode = false;
    Start();
    EXPECT_TRUE(Press(KeyCode::Escape));
    EXPECT_EQ(Asked(), 0);
    EXPECT_EQ(password.told, Told{});
}

TEST_F(SaverPasswordTest, AFirstSlideThatFailsIsToldAboveTheCoverAndDoesNotOpenTheDesktop) {
    PutSlides(3);
    platform.disks.Remove(PathOf(0));
    headless::ExpectedBox box{
        .text = "Unable to view image:\r\n\r\n" + PathOf(0) + "\r\n\r\nFile not found...",
        .icon = forms::BoxIcon::Stop,
        .systemModal = true};
    box.whileOpen = [this] { EXPECT_NE(toolkit.VisibleWindow("FullViewFrm"), nullptr); };
    Expect(box);
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(Asked(), 1);
    ExpectOn();
    EXPECT_FALSE(Advance(5000));
    EXPECT_EQ(Shown(), 1);
    password.right = true;
    EXPECT_TRUE(Press(KeyCode::Escape));
}

TEST_F(SaverPasswordTest, ALaterSlideThatFailsDoesNotOpenTheDesktopEither) {
    Start(3);
    platform.disks.Remove(PathOf(1));
    ExpectFailure(PathOf(1), "File not found");
    EXPECT_FALSE(Advance(5000));
    EXPECT_EQ(Asked(), 1);
    ExpectOn();
    EXPECT_FALSE(Advance(5000));
    EXPECT_EQ(Shown(), 2);
    ExpectOn();
}

TEST_F(SaverPasswordTest, AFailedSlideAndThePasswordEndIt) {
    Start(3);
    password.right = true;
    platform.disks.Remove(PathOf(1));
    ExpectFailure(PathOf(1), "File not found");
    EXPECT_TRUE(Advance(5000));
    EXPECT_EQ(password.told, (Told{true, false}));
}

/// Whatever a passer-by does, in an order of chance: a third of the slides cannot be shown, and what is done is done while
/// boxes and the question stand, too.
class PasserBy : public SaverPasswordTest {
  protected:
    void SetUp() override {
        module.config.PasswordDelay = 1;
        Start(3);
        EXPECT_FALSE(Advance(5001));  // the grace is over
        platform.disks.Remove(PathOf(1));
        ExpectTheNextFailure();
        password.whileAsking = [this] { DoSeveral(); };
    }
    void ExpectTheNextFailure() {
        headless::ExpectedBox box{
            .text = "Unable to view image:\r\n\r\n" + PathOf(1) + "\r\n\r\nFile not found...",
            .icon = forms::BoxIcon::Stop,
            .systemModal = true};
        box.whileOpen = [this] {
            if (!last_) ExpectTheNextFailure();
            EXPECT_NE(toolkit.VisibleWindow("FullViewFrm"), nullptr);
            DoSeveral();
        };
        Expect(box);
    }
    int Chance(int below) { return std::uniform_int_distribution(0, below - 1)(chance_); }
    void DoSeveral() {
        if (deep_) return;
        deep_ = true;
        for (int i = Chance(4); i > 0; --i)
            ASSERT_FALSE(Act());
        deep_ = false;
    }
    void Calm() { last_ = deep_ = true; }
    bool Act() {
        switch (Chance(9)) {
            case 0:
                return Press(Chance(256) + 1);
            case 1:
                return Click(1 << Chance(3), Chance(2) == 0);
            case 2:
                return AskToClose();
            case 3:
                return Ends([this] { Stage().FormUnload(); });
            case 4:
                return Moves(Chance(10));
            case 5:
                return Ends([this] { Stage().SlideTimer_Timer(); });
            case 6:  // the question fails, or works again
                platform.faults.Clear();
                if (Chance(2) == 0) {
                    platform.faults.FailAlways(Service::SaverPassword, "Verify",
                                               ErrorNumber::DeviceUnavailable);
                }
                return false;
            default:
                return Advance(Chance(2000));
        }
    }

  private:
    std::mt19937 chance_{4711};
    bool deep_ = false;  ///< no more inside of what is done
    bool last_ = false;  ///< no failure is to follow
};

TEST_F(PasserBy, NeverEndsTheSaverWithoutThePassword) {
    for (int step = 0; step < 100'000; ++step) {
        ASSERT_FALSE(Act()) << step;
        ExpectOn();
        ASSERT_FALSE(HasFailure()) << step;
    }
    EXPECT_GT(Asked(), 1000);
    EXPECT_GT(toolkit.BoxesShown(), 1000);
    EXPECT_EQ(password.told, Told{true});
    platform.faults.Clear();
    // The next failure and the password end it.
    Calm();
    password.right = true;
    bool ended = false;
    for (int i = 0; i < 3 && !ended; ++i)
        ended = Advance(5000);
    EXPECT_TRUE(ended);
    EXPECT_FALSE(password.running);
}

}  // namespace
}  // namespace tavrix::test
