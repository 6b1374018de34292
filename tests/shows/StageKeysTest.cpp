#include <gtest/gtest.h>

#include "shows/StageTest.h"

namespace tavrix {
namespace {

namespace KeyCode = forms::KeyCode;
using forms::MouseAction;
namespace MouseButton = forms::MouseButton;
using test::StageTest;

constexpr int Count = 12;

class StageKeysTest : public StageTest {
  protected:
    StageKeysTest() { module.config.SlideInterval = 0; }

    void PlayAt(int slide) {
        if (!Playing()) Play();
        Press(KeyCode::Home);
        while (Stage().CurrentSlide != slide)
            Press(KeyCode::Right);
    }
    /// Where a key leads from a slide.
    int From(int slide, int key) {
        PlayAt(slide);
        Press(key);
        EXPECT_EQ(Shown(), Stage().CurrentSlide);
        return Shown();
    }
    bool Release(int button) {
        return Ends([&] {
            Stage().Image1.Deliver(forms::MouseEvent{MouseAction::Down, button, 0, 1, 1});
            Stage().Image1.Deliver(forms::MouseEvent{MouseAction::Up, button, 0, 1, 1});
        });
    }
};

TEST_F(StageKeysTest, FiveKeysStepForwardsAndFiveBackwards) {
    PutSlides(Count);
    for (const int key : {98, 102, 32, 39, 40}) {
        EXPECT_EQ(From(0, key), 1) << key;
        EXPECT_EQ(From(5, key), 6) << key;
        EXPECT_EQ(From(Count - 1, key), 0) << key;
    }
    for (const int key : {104, 100, 8, 38, 37}) {
        EXPECT_EQ(From(0, key), Count - 1) << key;
        EXPECT_EQ(From(1, key), 0) << key;
        EXPECT_EQ(From(5, key), 4) << key;
    }
}

TEST_F(StageKeysTest, HomeAndEndLeadToTheEnds) {
    PutSlides(Count);
    for (const int slide : {0, 5, Count - 1}) {
        EXPECT_EQ(From(slide, 36), 0);
        EXPECT_EQ(From(slide, 35), Count - 1);
    }
}

TEST_F(StageKeysTest, PagesAreFiveSlides) {
    PutSlides(Count);
    EXPECT_EQ(From(0, 34), 5);
    EXPECT_EQ(From(6, 34), 11);
    EXPECT_EQ(From(7, 34), 0);
    EXPECT_EQ(From(11, 33), 6);
    EXPECT_EQ(From(5, 33), 0);
    EXPECT_EQ(From(3, 33), 0);
    EXPECT_EQ(From(1, 33), 0);
    EXPECT_EQ(From(0, 33), Count - 1);
}

TEST_F(StageKeysTest, APageBeyondTheEndEndsAShowThatDoesNotLoop) {
    PutSlides(Count);
    module.config.LoopSlideShow = false;
    PlayAt(8);
    Press(KeyCode::PageDown);
    EXPECT_FALSE(Playing());
}

TEST_F(StageKeysTest, AStepFromTheLastSlideEndsAShowThatDoesNotLoop) {
    PutSlides(3);
    module.config.LoopSlideShow = false;
    PlayAt(2);
    Press(KeyCode::Down);
    EXPECT_FALSE(Playing());
}

TEST_F(StageKeysTest, InRandomOrderEveryStepIsAPick) {
    PutSlides(5);
    Play();
    module.config.RandomSlides = true;
    Stage().SlideTotal = 5;
    Press(KeyCode::Home);
    EXPECT_EQ(Shown(), 4);
    Press(KeyCode::Left);
    EXPECT_EQ(Shown(), 3);
}

TEST_F(StageKeysTest, EveryOtherKeyEndsTheShow) {
    PutSlides(3);
    for (const int key : {27, 13, 9, 16, 17, 18, 65, 97, 107, 112, 123, 45, 49, 93}) {
        Play();
        Press(key);
        EXPECT_FALSE(Playing()) << key;
    }
}

TEST_F(StageKeysTest, TheKeyThatEndsTheShowDoesNothingElse) {
    PutSlides(3);
    bool helped = false;
    app.OnHelpKey = [&helped](unsigned) { helped = true; };
    Play();
    Press(KeyCode::F1);
    EXPECT_FALSE(helped);
}

TEST_F(StageKeysTest, InAStartedShowDeleteAndPauseEndItToo) {
    PutSlides(3);
    EXPECT_FALSE(PlayStarted());
    EXPECT_FALSE(Press(KeyCode::Right));
    EXPECT_TRUE(Press(KeyCode::Delete));
}

TEST_F(StageKeysTest, InAStartedShowPEndsIt) {
    PutSlides(3);
    EXPECT_FALSE(PlayStarted());
    EXPECT_TRUE(Press('P'));
}

TEST_F(StageKeysTest, InAStartedShowPauseEndsIt) {
    PutSlides(3);
    EXPECT_FALSE(PlayStarted());
    EXPECT_TRUE(Press(KeyCode::Pause));
}

TEST_F(StageKeysTest, EveryKeyEndsTheViewOfOneImage) {
    for (const int key : {98, 32, 39, 37, 36, 35, 34, 33, 46, 80, 19, 27, 16}) {
        PutPicture("C:\\p\\x.bmp", 100, 80);
        module.StageImage = "C:\\p\\x.bmp";
        ASSERT_FALSE(Open());
        EXPECT_FALSE(Press(key));
        EXPECT_FALSE(Playing()) << key;
    }
}

TEST_F(StageKeysTest, TheOneImageMayBeSeenFromTheCurrentFolder) {
    PutPicture("C:\\s\\sub\\x.bmp", 100, 80);
    PutGif("C:\\s\\a.gif");
    module.StageImage = "sub/x.bmp";
    ASSERT_FALSE(Open());
    ASSERT_TRUE(Playing());
    EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 100);
    Press(KeyCode::Escape);
    module.StageImage = "a.gif";
    module.StageImageAnimated = true;
    ASSERT_FALSE(Open());
    ASSERT_TRUE(Playing());
    EXPECT_EQ(Stage().Gif89a1.FileName.Get(), "C:\\s\\a.gif");
}

TEST_F(StageKeysTest, EveryKeyEndsASaver) {
    PutSlides(3);
    module.ScreenSaverMode = true;
    EXPECT_FALSE(PlayStarted());
    EXPECT_TRUE(Press(KeyCode::Right));
}

TEST_F(StageKeysTest, PauseStopsTheTimerAndStartsItAgain) {
    PutSlides(3);
    module.config.SlideInterval = 5;
    Play();
    Press('P');
    EXPECT_EQ(toolkit.Beeps(), 1);
    Advance(65000);  // not a multiple of what the whole show takes
    EXPECT_EQ(Shown(), 0);
    Press(KeyCode::Pause);
    EXPECT_EQ(toolkit.Beeps(), 2);
    Advance(5000);
    EXPECT_EQ(Shown(), 1);
}

TEST_F(StageKeysTest, APausedShowStaysPausedBesideAnotherProgram) {
    PutSlides(3);
    module.config.SlideInterval = 5;
    Play();
    Press('P');
    Stage().Deliver(forms::ActivateEvent{});  // the desktop brings the window back
    Advance(65000);
    EXPECT_EQ(Shown(), 0);
}

TEST_F(StageKeysTest, APausedShowThatIsSteppedGoesOn) {
    PutSlides(4);
    module.config.SlideInterval = 5;
    Play();
    Press('P');
    Press(KeyCode::Right);
    EXPECT_EQ(Shown(), 1);
    Advance(5000);
    EXPECT_EQ(Shown(), 2);
}

TEST_F(StageKeysTest, WithoutATimerPauseGivesTheBox) {
    PutSlides(3);
    Play();
    Advance(2000);
    EXPECT_TRUE(PointerHidden());
    Expect({.text = "Pause key has been disabled.\r\n\r\nSlide Show Timer is currently not in use..."});
    Press(KeyCode::Pause);
    EXPECT_FALSE(PointerHidden());
    EXPECT_EQ(toolkit.Beeps(), 0);
    EXPECT_TRUE(Playing());
}

TEST_F(StageKeysTest, TheRightButtonStepsAShowAndTheOthersEndIt) {
    PutSlides(3);
    Play();
    Release(MouseButton::Right);
    EXPECT_EQ(Shown(), 1);
    Release(MouseButton::Left);
    EXPECT_FALSE(Playing());
    Play();
    Release(MouseButton::Middle);
    EXPECT_FALSE(Playing());
    Play();
    Stage().Deliver(forms::MouseEvent{MouseAction::Up, MouseButton::Right, 0, 1, 1});
    EXPECT_EQ(Shown(), 1);
    Stage().Deliver(forms::MouseEvent{MouseAction::Up, MouseButton::Left, 0, 1, 1});
    EXPECT_FALSE(Playing());
}

TEST_F(StageKeysTest, EveryButtonEndsTheViewOfOneImage) {
    PutPicture("C:\\p\\x.bmp", 100, 80);
    module.StageImage = "C:\\p\\x.bmp";
    for (const int button : {MouseButton::Left, MouseButton::Right, MouseButton::Middle}) {
        ASSERT_FALSE(Open());
        Release(button);
        EXPECT_FALSE(Playing());
    }
}

TEST_F(StageKeysTest, TheRightButtonEndsASaver) {
    PutSlides(3);
    module.ScreenSaverMode = true;
    EXPECT_FALSE(PlayStarted());
    EXPECT_TRUE(Release(MouseButton::Right));
}

}  // namespace
}  // namespace tavrix
