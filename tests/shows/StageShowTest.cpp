#include <gtest/gtest.h>

#include "shows/StageTest.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

namespace KeyCode = forms::KeyCode;
using test::StageTest;

class StageShowTest : public StageTest {};

TEST_F(StageShowTest, AShowStepsByItsIntervalAndLoops) {
    PutSlides(3);
    Play();
    EXPECT_EQ(Stage().Caption.Get(), "Tavrix Full Screen View");
    EXPECT_EQ(Shown(), 0);
    Advance(4999);
    EXPECT_EQ(Shown(), 0);
    Advance(1);
    EXPECT_EQ(Shown(), 1);
    Advance(5000);
    EXPECT_EQ(Shown(), 2);
    Advance(5000);
    EXPECT_EQ(Shown(), 0);
    EXPECT_FALSE(module.Busy());
}

TEST_F(StageShowTest, WhileASlideStandsTheNextOneIsExpected) {
    PutSlides(3);
    Play();
    EXPECT_EQ(platform.pictures.expected, (Texts{PathOf(1)}));
    Advance(5000);
    EXPECT_EQ(platform.pictures.expected.back(), PathOf(2));
    Advance(5000);
    EXPECT_EQ(platform.pictures.expected.back(), PathOf(0));
    Press(KeyCode::Left);
    EXPECT_EQ(Shown(), 1);
    EXPECT_EQ(platform.pictures.expected.back(), PathOf(2));
    Press(KeyCode::Escape);
    ASSERT_FALSE(Playing());
    EXPECT_EQ(platform.pictures.expected.back(), "");
}

TEST_F(StageShowTest, NothingIsExpectedAtTheEndOrFromChance) {
    PutSlides(2);
    module.config.LoopSlideShow = false;
    Play();
    Advance(5000);
    EXPECT_EQ(platform.pictures.expected, (Texts{PathOf(1)}));
    Advance(5000);
    ASSERT_FALSE(Playing());
    platform.pictures.expected.clear();
    module.config.RandomSlides = true;
    module.config.LoopSlideShow = true;
    Play();
    Advance(20000);
    EXPECT_TRUE(platform.pictures.expected.empty());
}

TEST_F(StageShowTest, ASaverExpectsTheFirstSlideBehindTheLastWhateverTheLoop) {
    PutSlides(2);
    module.ScreenSaverMode = true;
    module.config.LoopSlideShow = false;
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(platform.pictures.expected.back(), PathOf(1));
    Advance(5000);
    EXPECT_EQ(platform.pictures.expected.back(), PathOf(0));
}

TEST_F(StageShowTest, OnlyAStillSlideThatIsThereIsExpected) {
    PutSlides(3);
    module.config.AnimateGIF89 = true;
    PutGif("C:\\s\\play.gif");
    module.show.SlideFiles.Set(1, "C:\\s\\play.gif");
    PutPicture("C:\\s\\here.bmp", FirstWidth, Height);
    module.show.SlideFiles.Set(2, "C:\\elsewhere\\here.bmp");
    Play();
    EXPECT_EQ(platform.pictures.expected, (Texts{""}));
    Advance(5000);
    EXPECT_EQ(platform.pictures.expected.back(), "C:\\s\\here.bmp");
}

TEST_F(StageShowTest, AThousandSlidesPlayInFileOrderToTheEnd) {
    PutSlides(1000);
    module.config.LoopSlideShow = false;
    Play();
    Advance(999 * 5000);
    EXPECT_EQ(Shown(), 999);
    Texts expected;
    for (int i = 0; i < 1000; ++i)
        expected.push_back(PathOf(i));
    EXPECT_EQ(Loaded(), expected);
    Advance(5000);
    EXPECT_FALSE(Playing());
    EXPECT_NE(app.Loaded<test::FakeEditor>(), nullptr);
}

TEST_F(StageShowTest, TheEndOfAStartedShowEndsTheProcess) {
    PutSlides(2);
    module.config.LoopSlideShow = false;
    EXPECT_FALSE(PlayStarted());
    EXPECT_FALSE(Advance(5000));
    EXPECT_EQ(Shown(), 1);
    EXPECT_TRUE(Advance(5000));
}

TEST_F(StageShowTest, AShowOfOneSlideNeverStepsAndNeverEnds) {
    PutSlides(1);
    module.config.LoopSlideShow = false;
    Play();
    Advance(600 * 1000);
    EXPECT_EQ(Shown(), 0);
    for (const int key :
         {KeyCode::Right, KeyCode::Left, KeyCode::Home, KeyCode::End, KeyCode::PageDown, KeyCode::PageUp}) {
        Press(key);
        EXPECT_EQ(Shown(), 0);
        EXPECT_EQ(Stage().CurrentSlide, 0);
    }
    EXPECT_EQ(Loaded(), (Texts{PathOf(0)}));
}

TEST_F(StageShowTest, WithoutAnIntervalOnlyKeysStep) {
    PutSlides(3);
    module.config.SlideInterval = 0;
    Play();
    Advance(3600 * 1000);
    EXPECT_EQ(Shown(), 0);
    Press(KeyCode::Right);
    EXPECT_EQ(Shown(), 1);
    Advance(3600 * 1000);
    EXPECT_EQ(Shown(), 1);
}

TEST_F(StageShowTest, AnIntervalAbove32SecondsNeverAdvancesByItself) {
    PutSlides(3);
    module.config.SlideInterval = 33;
    Play();
    Advance(3600 * 1000);
    EXPECT_EQ(Shown(), 0);
    Press(KeyCode::Space);
    EXPECT_EQ(Shown(), 1);
    Expect({.text = "Pause key has been disabled.\r\n\r\nSlide Show Timer is currently not in use..."});
    Press('P');
    EXPECT_TRUE(Playing());
}

TEST_F(StageShowTest, AnIntervalOf32SecondsAdvances) {
    PutSlides(3);
    module.config.SlideInterval = 32;
    Play();
    Advance(31999);
    EXPECT_EQ(Shown(), 0);
    Advance(1);
    EXPECT_EQ(Shown(), 1);
}

TEST_F(StageShowTest, RandomOrderLoopsWithTheExpectedPicks) {
    PutSlides(5);
    module.config.RandomSlides = true;
    Play();
    EXPECT_EQ(Stage().SlideTotal, 5);
    // The sequence 0.7055, 0.5334, 0.5795, 0.2896, 0.3019, 0.7747, 0.0140, 0.7607, 0.8145, 0.7090, ... times 6; 5 is
    // the empty slot, which stands for 0.
    std::vector<int> picks;
    for (int i = 0; i < 14; ++i) {
        Advance(5000);
        picks.push_back(Shown());
    }
    EXPECT_EQ(picks, (std::vector<int>{4, 3, 3, 1, 1, 4, 0, 4, 4, 4, 0, 2, 0, 4}));
    Press(KeyCode::Home);
    EXPECT_NE(Shown(), -1);
    EXPECT_TRUE(Playing());
}

TEST_F(StageShowTest, ARandomShowThatDoesNotLoopEndsOnTheEmptySlot) {
    PutSlides(2);
    module.config.RandomSlides = true;
    module.config.LoopSlideShow = false;
    Play();
    // 0.7055 times 3 is slot 2, which is empty.
    Advance(5000);
    EXPECT_FALSE(Playing());
}

TEST_F(StageShowTest, AfterTheLastSlotComesTheFirst) {
    PutSlides(2);
    for (int i = 2; i < SlideTexts::Slots; ++i)
        module.show.SlideFiles.Set(i, PathOf(1));
    module.config.LoopSlideShow = false;
    Play();
    Press(KeyCode::End);
    EXPECT_EQ(Stage().CurrentSlide, SlideTexts::LastIndex);
    Press(KeyCode::Right);
    EXPECT_EQ(Stage().CurrentSlide, 0);
    EXPECT_EQ(Shown(), 0);
}

TEST_F(StageShowTest, AMissingSlideIsLookedForBesideTheShow) {
    PutSlides(1);
    module.show.SlideFiles.Set(1, "D:\\away\\beside.bmp");
    module.show.SlideFiles.Set(2, "sub\\inside.bmp");
    PutPicture("C:\\s\\beside.bmp", 120, 80);
    PutPicture("C:\\s\\sub\\inside.bmp", 130, 80);
    Play();
    Advance(5000);
    EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 120);
    Advance(5000);
    EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 130);
}

TEST_F(StageShowTest, AMissingFirstSlideIsLookedForBesideTheShowToo) {
    PutPicture("C:\\s\\beside.bmp", 120, 80);
    module.show.SlideFiles.Set(0, "D:\\away\\beside.bmp");
    Play();
    EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 120);
}

TEST_F(StageShowTest, AFirstSlideThatCannotBeShownIsReportedAndEndsTheShow) {
    PutSlides(2);
    module.show.SlideFiles.Set(0, "C:\\gone\\x.bmp");
    module.config.ShowToolbar = true;
    headless::ExpectedBox box{.text = "Unable to view image:\r\n\r\nC:\\gone\\x.bmp\r\n\r\nFile not found...",
                              .icon = forms::BoxIcon::Stop,
                              .systemModal = true};
    bool nothingOnScreen = false;
    box.whileOpen = [&] {
        nothingOnScreen =
            toolkit.VisibleWindow("FullViewFrm") == nullptr && toolkit.VisibleWindow("frmToolbar") == nullptr;
    };
    Expect(box);
    Play();
    EXPECT_TRUE(nothingOnScreen);
    EXPECT_FALSE(Playing());
    EXPECT_EQ(app.Loaded<frmToolbar>(), nullptr);
    EXPECT_FALSE(module.Busy());
    Advance(60000);
}

TEST_F(StageShowTest, ALaterSlideThatCannotBeDecodedEndsTheShowWithTheBox) {
    PutSlides(2);
    platform.disks.PutFile(PathOf(1), "no picture");
    headless::ExpectedBox box{
        .text = "Unable to view image:\r\n\r\n" + PathOf(1) + "\r\n\r\nInvalid picture...",
        .icon = forms::BoxIcon::Stop,
        .systemModal = true};
    bool pointerShown = false;
    bool topmost = true;
    box.whileOpen = [&] {
        pointerShown = !PointerHidden();
        topmost = Window().topmost;
    };
    Expect(box);
    Play();
    Advance(5000);
    EXPECT_TRUE(pointerShown);
    EXPECT_FALSE(topmost);
    EXPECT_FALSE(Playing());
    EXPECT_FALSE(module.Busy());
}

TEST_F(StageShowTest, AFailedSlideOfAStartedShowEndsTheProcess) {
    PutSlides(2);
    platform.disks.Remove(PathOf(1));
    ExpectFailure(PathOf(1), "File not found");
    EXPECT_FALSE(PlayStarted());
    EXPECT_TRUE(Advance(5000));
}

TEST_F(StageShowTest, AnAnimatedSlidePlaysUnderAnInvisibleImage) {
    PutSlides(2);
    PutGif("C:\\s\\a.gif");
    module.show.SlideFiles.Set(1, "C:\\s\\a.gif");
    Play();
    EXPECT_FALSE(Stage().Gif89a1.Visible);
    Advance(5000);
    EXPECT_EQ(Stage().Gif89a1.FileName.Get(), "C:\\s\\a.gif");
    EXPECT_TRUE(Stage().Gif89a1.Visible);
    EXPECT_TRUE(Stage().Image1.Visible);
    EXPECT_TRUE(Stage().Image1.Picture.Get().Empty());
    EXPECT_EQ(Stage().Image1.Width, 12000);
    EXPECT_EQ(Stage().Image1.Height, 9000);
    EXPECT_EQ(Stage().Gif89a1.Left, (12000 - 40 * Twips) / 2);
    EXPECT_EQ(Stage().Gif89a1.Top, (9000 - 20 * Twips) / 2);
    Advance(5000);
    EXPECT_EQ(Stage().Gif89a1.FileName.Get(), "");
    EXPECT_FALSE(Stage().Gif89a1.Visible);
    EXPECT_EQ(Shown(), 0);
    EXPECT_EQ(Stage().Image1.Width, FirstWidth * Twips);
}

TEST_F(StageShowTest, AnAnimatedSlideBesideTheShowIsFoundByItsFullName) {
    PutSlides(2);
    PutGif("C:\\s\\a.gif");
    module.show.SlideFiles.Set(1, "E:\\gone\\a.gif");
    Play();
    Advance(5000);
    EXPECT_EQ(Stage().Gif89a1.FileName.Get(), "C:\\s\\a.gif");
}

TEST_F(StageShowTest, WithoutAnimationAnAnimatedSlideIsAStillImage) {
    PutSlides(2);
    PutGif("C:\\s\\a.gif");
    module.show.SlideFiles.Set(1, "C:\\s\\a.gif");
    module.config.AnimateGIF89 = false;
    Play();
    Advance(5000);
    EXPECT_EQ(Stage().Gif89a1.FileName.Get(), "");
    EXPECT_FALSE(Stage().Gif89a1.Visible);
    EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 40);
}

TEST_F(StageShowTest, TheImageIsHiddenWhileTheNextOneIsDecoded) {
    PutSlides(2);
    Play();
    bool hidden = false;
    bool busy = false;
    platform.faults.AtNth(headless::Service::Pictures, 1, [&] {
        hidden = !Stage().Image1.Visible;
        busy = module.Busy() && Stage().SlideChanging;
    });
    Advance(5000);
    EXPECT_TRUE(hidden);
    EXPECT_TRUE(busy);
    EXPECT_FALSE(Stage().SlideChanging);
}

TEST_F(StageShowTest, KeysAndClicksDuringAChangeAreLost) {
    PutSlides(7);
    Play();
    int lost = 0;
    for (const int yield : {1, 2, 3, 4}) {
        toolkit.AtYield(yield, [this, &lost] {
            const int slide = Stage().CurrentSlide;
            for (const int key :
                 {KeyCode::Escape, KeyCode::Left, KeyCode::Right, KeyCode::Home, KeyCode::End,
                  KeyCode::PageDown, KeyCode::PageUp, KeyCode::Delete, static_cast<int>('P'), KeyCode::Pause})
                Press(key);
            for (const int button : {1, 2, 4})
                Stage().Image1.Deliver(forms::MouseEvent{forms::MouseAction::Up, button, 0, 1, 1});
            EXPECT_EQ(Stage().CurrentSlide, slide);
            ++lost;
        });
    }
    Press(KeyCode::Right);
    EXPECT_EQ(lost, 4);
    EXPECT_TRUE(Playing());
    EXPECT_EQ(Shown(), 1);
    EXPECT_EQ(toolkit.Beeps(), 0);
}

TEST_F(StageShowTest, TheRoleOfAStageIsItsOwnFromLoadToUnload) {
    PutSlides(3);
    module.config.SoundMode = 1;
    module.config.SoundFile = "C:\\s\\a.wav";
    module.config.ShowToolbar = true;
    Play();
    // What another window would show next, and other settings.
    module.SlideShowActive = false;
    module.StartedAsShow = true;
    module.StageImage = "C:\\p\\x.bmp";
    module.config.SoundMode = 0;
    module.config.SoundFile = "";
    Press('P');
    EXPECT_EQ(toolkit.Beeps(), 1);
    Press(KeyCode::Right);
    EXPECT_EQ(Shown(), 1);
    Advance(5000);
    EXPECT_EQ(Shown(), 2);
    Press(KeyCode::Escape);
    EXPECT_FALSE(Playing());
    EXPECT_EQ(app.Loaded<frmToolbar>(), nullptr);
    EXPECT_EQ(platform.sound.calls, (Texts{"PlayWave (C:\\s\\a.wav, 3)", "PlayWave (, 3)"}));
    EXPECT_FALSE(platform.wakefulness.inhibited);
}

TEST_F(StageShowTest, AStageThatIsClosedDuringAChangeLeavesNoLock) {
    PutSlides(3);
    for (const int yield : {1, 2, 3, 4}) {
        Play();
        toolkit.AtYield(yield, [this] { Stage().Deliver(forms::CloseEvent{}); });
        Press(KeyCode::Right);
        EXPECT_FALSE(Playing());
        EXPECT_FALSE(module.Busy());
    }
}

TEST_F(StageShowTest, TheFirstImageIsCentredByWholeNumbersAndLaterOnesExactly) {
    toolkit.screen = {801, 601, Twips, Twips, 24};
    PutSlides(2);
    PutPicture(PathOf(0), 100, 80);
    PutPicture(PathOf(1), 100, 80);
    Play();
    EXPECT_EQ(Stage().Image1.Left, 5257);  // 12015 less 1500 is 10515
    EXPECT_EQ(Stage().Image1.Top, 3907);
    Press(KeyCode::Right);
    EXPECT_EQ(Stage().Image1.Left, 5257.5F);
    EXPECT_EQ(Stage().Image1.Top, 3907.5F);
}

TEST_F(StageShowTest, AWideSlideIsShrunkAndCentred) {
    PutSlides(1);
    PutPicture(PathOf(0), 4000, 100);
    Play();
    EXPECT_TRUE(Stage().Image1.Stretch);
    EXPECT_EQ(Stage().Image1.Width, 12000);
    EXPECT_EQ(Stage().Image1.Height, 300);
    EXPECT_EQ(Stage().Image1.Left, 0);
    EXPECT_EQ(Stage().Image1.Top, 4350);
}

TEST_F(StageShowTest, SmallImagesStayAndOthersAreEnlarged) {
    module.config.EnlargeImages = true;
    PutSlides(2);
    PutPicture(PathOf(0), 16, 16);
    PutPicture(PathOf(1), 32, 32);
    Play();
    EXPECT_FALSE(Stage().Image1.Stretch);
    EXPECT_EQ(Stage().Image1.Width, 240);
    Press(KeyCode::Right);
    EXPECT_TRUE(Stage().Image1.Stretch);
    EXPECT_EQ(Stage().Image1.Width, 9000);
    EXPECT_EQ(Stage().Image1.Height, 9000);
    EXPECT_EQ(Stage().Image1.Left, 1500);
    EXPECT_EQ(Stage().Image1.Top, 0);
    Press(KeyCode::Right);
    EXPECT_FALSE(Stage().Image1.Stretch);
    EXPECT_EQ(Stage().Image1.Width, 240);
}

TEST_F(StageShowTest, WithoutStretchingALargeImageIsCutAtItsEdges) {
    module.config.StretchImages = false;
    PutSlides(1);
    PutPicture(PathOf(0), 1000, 1001);
    Play();
    EXPECT_FALSE(Stage().Image1.Stretch);
    EXPECT_EQ(Stage().Image1.Left, -1500);
    EXPECT_EQ(Stage().Image1.Top, -3007);  // -6015, halved towards zero
}

TEST_F(StageShowTest, AChangeOfTheDisplayFitsTheImageAgain) {
    PutSlides(2);
    PutPicture(PathOf(0), 4000, 100);
    Play();
    Stage().Deliver(forms::PlacementEvent{{0, 0, 400, 300}, forms::WindowState::Normal});
    EXPECT_EQ(Stage().Image1.Width, 6000);
    EXPECT_EQ(Stage().Image1.Height, 150);
    EXPECT_EQ(Stage().Image1.Top, 2175);
}

TEST_F(StageShowTest, OverlaysTellPathAndDescription) {
    struct Case {
        bool filenames;
        bool description;
        const char* first;
        const char* second;
    };
    for (const Case& c :
         {Case{true, true, "C:\\s\\1.bmp <--> One", "C:\\s\\2.bmp <--> No Description Available"},
          {true, false, "C:\\s\\1.bmp", "C:\\s\\2.bmp"},
          {false, true, "One", ""},
          {false, false, "", ""}}) {
        PutSlides(2);
        module.show.SlideDescriptions.Set(0, "One");
        module.config.ShowFilenames = c.filenames;
        module.config.ShowDescription = c.description;
        Play();
        EXPECT_EQ(Stage().Image1.ToolTip.Get(), c.first);
        Press(KeyCode::Right);
        EXPECT_EQ(Stage().Image1.ToolTip.Get(), c.second);
        Press(KeyCode::Escape);
    }
}

TEST_F(StageShowTest, SoundPlaysAndTheScreenStaysAwakeForTheWholeShow) {
    PutSlides(2);
    module.config.SoundMode = 1;
    module.config.SoundFile = "C:\\s\\a.wav";
    Play();
    EXPECT_EQ(platform.sound.calls, (Texts{"PlayWave (C:\\s\\a.wav, 3)"}));
    EXPECT_TRUE(platform.wakefulness.inhibited);
    Press(KeyCode::Right);
    Press(KeyCode::Escape);
    EXPECT_EQ(platform.sound.calls, (Texts{"PlayWave (C:\\s\\a.wav, 3)", "PlayWave (, 3)"}));
    EXPECT_FALSE(platform.wakefulness.inhibited);
}

TEST_F(StageShowTest, ThePointerGoesAwayTwoSecondsAfterTheLastMove) {
    PutSlides(2);
    module.config.SlideInterval = 0;
    Play();
    EXPECT_FALSE(PointerHidden());
    Advance(1999);
    EXPECT_FALSE(PointerHidden());
    Advance(1);
    EXPECT_TRUE(PointerHidden());
    Stage().Image1.Deliver(forms::MouseEvent{forms::MouseAction::Move, 0, 0, 30, 30});
    EXPECT_FALSE(PointerHidden());
    Advance(2000);
    EXPECT_TRUE(PointerHidden());
    Stage().Deliver(forms::MouseEvent{forms::MouseAction::Move, 0, 0, 30, 30});
    EXPECT_FALSE(PointerHidden());
    Advance(2000);
    Stage().Image1.Visible = false;
    Stage().Deliver(forms::MouseEvent{forms::MouseAction::Move, 0, 0, 31, 30});
    EXPECT_TRUE(PointerHidden());
}

TEST_F(StageShowTest, TheImageHasAPointerOfItsOwnAndTheSaversIsNotSeen) {
    const auto visiblePixels = [this] {
        const auto& peer = dynamic_cast<headless::HeadlessCanvasPeer&>(*Stage().Image1.Peer());
        int visible = 0;
        for (int y = 0; y < peer.pointerPicture->Height(); ++y) {
            for (const Pixel pixel : peer.pointerPicture->Row(y))
                visible += pixel != 0 ? 1 : 0;
        }
        return visible;
    };
    PutSlides(2);
    Play();
    EXPECT_EQ(Stage().Image1.MousePointer.Get(), forms::MousePointer::Custom);
    EXPECT_GT(visiblePixels(), 50);
    Advance(2000);
    EXPECT_EQ(Stage().Image1.MousePointer.Get(), forms::MousePointer::Hidden);
    Stage().Image1.Deliver(forms::MouseEvent{forms::MouseAction::Move, 0, 0, 30, 30});
    EXPECT_EQ(Stage().Image1.MousePointer.Get(), forms::MousePointer::Custom);
    Press(KeyCode::Escape);

    module.ScreenSaverMode = true;
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(visiblePixels(), 0);
}

TEST_F(StageShowTest, ASaverLoopsStepsAndHasNoOverlays) {
    PutSlides(2);
    module.ScreenSaverMode = true;
    module.config.LoopSlideShow = false;
    module.config.SlideInterval = 0;
    module.config.ShowFilenames = true;
    module.config.ShowToolbar = true;
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(Window().title, "Screen Saver Main Form");
    EXPECT_TRUE(Window().topmost);
    EXPECT_TRUE(PointerHidden());
    EXPECT_EQ(app.Loaded<frmToolbar>(), nullptr);
    EXPECT_FALSE(platform.wakefulness.inhibited);
    Advance(5000);
    EXPECT_EQ(Shown(), 1);
    Advance(5000);
    EXPECT_EQ(Shown(), 0);
    EXPECT_EQ(Stage().Image1.ToolTip.Get(), "");
    EXPECT_TRUE(PointerHidden());
    EXPECT_EQ(Saved("ImageLastDisplayed"), "");
    EXPECT_TRUE(Press(KeyCode::Right));
}

TEST_F(StageShowTest, AFailedSlideOfASaverIsToldBelowNothing) {
    PutSlides(2);
    platform.disks.Remove(PathOf(1));
    module.ScreenSaverMode = true;
    headless::ExpectedBox box{
        .text = "Unable to view image:\r\n\r\n" + PathOf(1) + "\r\n\r\nFile not found...",
        .icon = forms::BoxIcon::Stop,
        .systemModal = true};
    box.whileOpen = [&] {
        EXPECT_FALSE(Window().topmost);
        EXPECT_FALSE(PointerHidden());
    };
    Expect(box);
    EXPECT_FALSE(PlayStarted());
    EXPECT_TRUE(Window().topmost);
    EXPECT_TRUE(Advance(5000));
}

TEST_F(StageShowTest, ASaverResumesWhereItWas) {
    PutSlides(3);
    module.ScreenSaverMode = true;
    module.config.ResumeLastDisplayed = true;
    module.config.ImageLastDisplayed = 1;
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(Shown(), 1);
    Advance(5000);
    EXPECT_EQ(Saved("ImageLastDisplayed"), "2");
    Advance(5000);
    EXPECT_EQ(Saved("ImageLastDisplayed"), "0");
}

TEST_F(StageShowTest, OnlyASaverResumesAndRemembers) {
    PutSlides(3);
    module.config.ResumeLastDisplayed = true;
    module.config.ImageLastDisplayed = 1;
    Play();
    EXPECT_EQ(Shown(), 0);
    Advance(5000);
    EXPECT_EQ(Shown(), 1);
    EXPECT_EQ(Saved("ImageLastDisplayed"), "");
}

TEST_F(StageShowTest, ASaverThatDoesNotResumeStartsAtTheFirstSlide) {
    PutSlides(3);
    module.ScreenSaverMode = true;
    module.config.ImageLastDisplayed = 1;
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(Shown(), 0);
}

TEST_F(StageShowTest, TheSoundOfASaverPlaysAsLongAsTheSaver) {
    PutSlides(2);
    module.ScreenSaverMode = true;
    module.config.SoundMode = 1;
    module.config.SoundLoop = true;
    module.config.SoundFile = "C:\\s\\a.wav";
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(platform.sound.calls, (Texts{"PlayWave (C:\\s\\a.wav, 11)"}));
    Advance(5000);
    EXPECT_EQ(platform.sound.calls.size(), 1U);
    EXPECT_TRUE(Press(KeyCode::Right));
    EXPECT_EQ(platform.sound.calls, (Texts{"PlayWave (C:\\s\\a.wav, 11)", "PlayWave (, 3)"}));
}

TEST_F(StageShowTest, ASaverShowsNoToolTipsAndNoPointer) {
    PutSlides(2);
    module.ScreenSaverMode = true;
    module.config.ShowFilenames = true;
    module.config.ShowDescription = true;
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(Stage().Image1.ToolTip.Get(), "");
    EXPECT_TRUE(PointerHidden());
    Advance(5000);
    EXPECT_EQ(Shown(), 1);
    EXPECT_EQ(Stage().Image1.ToolTip.Get(), "");
    Stage().Image1.Deliver(forms::MouseEvent{forms::MouseAction::Move, 0, 0, 30, 30});
    Stage().Deliver(forms::MouseEvent{forms::MouseAction::Move, 0, 0, 31, 30});
    EXPECT_TRUE(PointerHidden());
}

TEST_F(StageShowTest, ASaverBeginsAnewWhereItsSlideHasGone) {
    PutSlides(3);
    module.ScreenSaverMode = true;
    module.config.ResumeLastDisplayed = true;
    module.config.ImageLastDisplayed = 7;
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(Shown(), 0);
}

TEST_F(StageShowTest, ASaverDoesNotResumeBeforeTheFirstSlide) {
    PutSlides(3);
    module.ScreenSaverMode = true;
    module.config.ResumeLastDisplayed = true;
    module.config.ImageLastDisplayed = -3;
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(Shown(), 0);
}

TEST_F(StageShowTest, ASaverDoesNotResumeBehindTheLastSlot) {
    PutSlides(3);
    module.ScreenSaverMode = true;
    module.config.ResumeLastDisplayed = true;
    module.config.ImageLastDisplayed = 32767;
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(Shown(), 0);
}

}  // namespace
}  // namespace tavrix
