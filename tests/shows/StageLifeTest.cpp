#include <gtest/gtest.h>

#include "shows/AnimatedGif.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/StageCommands.h"
#include "support/MainViewFixture.h"

namespace tavrix {
namespace {

namespace KeyCode = forms::KeyCode;

/// A main view from which the stage is opened.
class StageLifeTest : public test::MainViewFixture {
  protected:
    static constexpr const char* Path = "C:\\p\\x.bmp";

    StageLifeTest() {
        Setting("AutosizeWindow", "False");
        platform.pictures.SetPicture(Path, test::PlainPicture(100, 80));
        toolkit.OnModal("FullViewFrm", [this] {
            seen();
            if (app.Loaded<FullViewFrm>() != nullptr) Key(KeyCode::Escape);
        });
    }
    FullViewFrm& Stage() { return *app.Loaded<FullViewFrm>(); }
    void Key(int keyCode) { Stage().Deliver(forms::KeyEvent{true, keyCode, 0, nullptr}); }

    /// Drops a show of two slides on the main view.
    void DropShow(const std::string& path, const std::string& sound) {
        platform.disks.PutFile(path, "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n" +
                                         std::string(sound.empty() ? "0" : "1") + "\r\n\"" + sound +
                                         "\"\r\n0\r\n0\r\n5\r\n0\r\n0\r\n0\r\n-1\r\n0\r\n"
                                         "\"C:\\p\\x.bmp\"\r\n\"\"\r\n\"C:\\p\\y.bmp\"\r\n\"\"\r\n");
        platform.pictures.SetPicture("C:\\p\\y.bmp", test::PlainPicture(50, 40));
        View().Deliver(forms::DropEvent{{path}});
    }
    [[nodiscard]] int Stages() const {
        int stages = 0;
        for (int i = 0; i < app.FormCount(); ++i)
            stages += dynamic_cast<FullViewFrm*>(&app.FormAt(i)) != nullptr ? 1 : 0;
        return stages;
    }

    int views = 0;
    std::function<void()> seen = [this] { ++views; };
};

TEST_F(StageLifeTest, TheImageIsShownOverTheWholeDisplay) {
    ASSERT_TRUE(Start(Path));
    seen = [this] {
        ++views;
        EXPECT_EQ(Stage().Caption.Get(), "Tavrix Full Screen View");
        EXPECT_EQ(toolkit.VisibleWindow("FullViewFrm")->placement, (PixelRect{0, 0, 1280, 1024}));
        EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 100);
        EXPECT_EQ(Stage().Image1.ToolTip.Get(), "");
        EXPECT_FALSE(Stage().SlideTimer.Interval > 0);
        EXPECT_FALSE(platform.wakefulness.inhibited);
    };
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 1);
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_FALSE(module.Busy());
    EXPECT_EQ(module.CurrentImage, Path);
}

TEST_F(StageLifeTest, TheButtonInTheCornerDoesTheSame) {
    ASSERT_TRUE(Start(Path));
    View().CmdFullScreen_Click();
    EXPECT_EQ(views, 1);
}

TEST_F(StageLifeTest, WithoutAnImageThereIsNothingToView) {
    ASSERT_TRUE(Start());
    Expect({.text = "An image has not been opened yet, unable to view full screen..."});
    mnuFullScreen_Click(View());
    EXPECT_EQ(views, 0);
}

TEST_F(StageLifeTest, ABusyProgramShowsNoStage) {
    ASSERT_TRUE(Start(Path));
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    mnuFullScreen_Click(View());
    EXPECT_EQ(views, 0);
    module.Screen().MousePointer = forms::MousePointer::Default;
}

TEST_F(StageLifeTest, FilenamesAreTheTooltip) {
    Setting("ShowFilenames", "True");
    ASSERT_TRUE(Start(Path));
    seen = [this] {
        ++views;
        EXPECT_EQ(Stage().Image1.ToolTip.Get(), Path);
    };
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 1);
}

TEST_F(StageLifeTest, TheMainViewLeavesTheTopmostBandMeanwhile) {
    Setting("TopMostWindow", "True");
    ASSERT_TRUE(Start(Path));
    seen = [this] {
        ++views;
        EXPECT_FALSE(toolkit.VisibleWindow("MainViewFrm")->topmost);
    };
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 1);
    EXPECT_TRUE(toolkit.VisibleWindow("MainViewFrm")->topmost);
}

TEST_F(StageLifeTest, AFileThatIsGoneIsReportedOnce) {
    ASSERT_TRUE(Start(Path));
    platform.disks.Remove(Path);
    headless::ExpectedBox box{.text = "Unable to view image:\r\n\r\nC:\\p\\x.bmp\r\n\r\nFile not found...",
                              .icon = forms::BoxIcon::Stop,
                              .systemModal = true};
    box.whileOpen = [this] { EXPECT_EQ(toolkit.VisibleWindow("FullViewFrm"), nullptr); };
    Expect(box);
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_FALSE(module.Busy());
}

TEST_F(StageLifeTest, EachColourOfTheBackground) {
    const Colour colours[] = {Black, White, ButtonFace, Colour{0x400000}, Colour{0x40}, Colour{0x404040}};
    ASSERT_TRUE(Start(Path));
    int setting = 0;
    seen = [&] { EXPECT_EQ(Stage().BackColor.Get(), colours[setting]); };
    for (; setting < 6; ++setting) {
        module.config.BackgroundColor = static_cast<std::int16_t>(setting);
        Choose(View().menu.mnuFullScreen);
    }
}

TEST_F(StageLifeTest, AnAnimationIsCentredUnderTheImage) {
    ASSERT_TRUE(Start(Path));
    module.StageImageAnimated = true;
    seen = [this] {
        ++views;
        EXPECT_EQ(Stage().Gif89a1.FileName.Get(), Path);
        EXPECT_TRUE(Stage().Gif89a1.Visible);
        EXPECT_EQ(Stage().Gif89a1.Left, (1280 - 100) * 15 / 2);
        EXPECT_EQ(Stage().Image1.Width, 1280 * 15);
        EXPECT_TRUE(Stage().Image1.Visible);
        EXPECT_TRUE(Stage().Image1.Picture.Get().Empty());
    };
    ViewFullScreen(View());
    EXPECT_EQ(views, 1);
}

TEST_F(StageLifeTest, TheStageCoversTheDisplayThatItIsGiven) {
    toolkit.fullScreenPlace = PixelRect{1280, 0, 640, 480};
    ASSERT_TRUE(Start(Path));
    seen = [this] {
        ++views;
        EXPECT_EQ(Stage().Left, 1280 * 15);
        EXPECT_EQ(Stage().Image1.Left, (640 - 100) * 15 / 2);
    };
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 1);
}

TEST_F(StageLifeTest, AShowOnTheCommandLinePlaysAndEndsTheProcess) {
    platform.pictures.SetPicture("C:\\shows\\b.bmp", test::PlainPicture(50, 40));
    platform.disks.PutFile(
        "C:\\shows\\x.tvs",
        "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n0\r\n\"\"\r\n0\r\n0\r\n3\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"
        "\"C:\\p\\x.bmp\"\r\n\"\"\r\n\"D:\\gone\\b.bmp\"\r\n\"\"\r\n");
    ASSERT_TRUE(Start("C:\\shows\\x.tvs"));
    EXPECT_EQ(app.Loaded<MainViewFrm>(), nullptr);
    EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 100);
    EXPECT_FALSE(module.Busy());
    toolkit.Advance(forms::Milliseconds(3000));
    EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 50);
    EXPECT_TRUE(Ends([this] { toolkit.Advance(forms::Milliseconds(3000)); }));
}

TEST_F(StageLifeTest, AShowRaisesNoMainViewThatIsNotToBeOnTop) {
    ASSERT_TRUE(Start(Path));
    module.SlideShowActive = true;
    module.show.SlideFiles.Set(0, Path);
    app.Load<FullViewFrm>(module).Show();
    Key(KeyCode::Escape);
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_FALSE(toolkit.VisibleWindow("MainViewFrm")->topmost);
}

TEST_F(StageLifeTest, AShowBesideTheMainViewLeavesTheProcessRunning) {
    ASSERT_TRUE(Start(Path));
    module.config.TopMostWindow = true;
    module.SlideShowActive = true;
    module.StartedAsShow = true;
    module.show.SlideFiles.Set(0, Path);
    EXPECT_FALSE(Ends([this] {
        app.Load<FullViewFrm>(module).Show();
        Key(KeyCode::Escape);
    }));
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_TRUE(toolkit.VisibleWindow("MainViewFrm")->topmost);
}

using Texts = std::vector<std::string>;

TEST_F(StageLifeTest, AFullScreenViewEndsTheDroppedShowAndItsSound) {
    ASSERT_TRUE(Start(Path));
    DropShow("C:\\shows\\x.tvs", "C:\\shows\\a.wav");
    EXPECT_TRUE(platform.wakefulness.inhibited);
    seen = [this] {
        ++views;
        EXPECT_EQ(Stages(), 1);
        EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 100);
        EXPECT_EQ(platform.sound.calls, (Texts{"PlayWave (C:\\shows\\a.wav, 3)", "PlayWave (, 3)"}));
        EXPECT_FALSE(platform.wakefulness.inhibited);
        toolkit.Advance(forms::Milliseconds(5000));
        EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 100);
    };
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 1);
    EXPECT_EQ(Stages(), 0);
    EXPECT_EQ(platform.sound.calls.size(), 2U);
}

TEST_F(StageLifeTest, ASecondDroppedShowTakesThePlaceOfTheFirst) {
    ASSERT_TRUE(Start(Path));
    DropShow("C:\\shows\\x.tvs", "C:\\shows\\a.wav");
    DropShow("C:\\shows\\y.tvs", "");
    EXPECT_EQ(Stages(), 1);
    EXPECT_EQ(platform.sound.calls, (Texts{"PlayWave (C:\\shows\\a.wav, 3)", "PlayWave (, 3)"}));
    EXPECT_TRUE(platform.wakefulness.inhibited);
    toolkit.Advance(forms::Milliseconds(5000));
    EXPECT_EQ(Stage().Image1.Picture.Get().Width(), 50);
    Key(KeyCode::Escape);
    EXPECT_EQ(Stages(), 0);
    EXPECT_FALSE(platform.wakefulness.inhibited);
    EXPECT_FALSE(module.Busy());
}

TEST_F(StageLifeTest, TheQuestionAboutTheClipboardComesAfterADroppedShow) {
    ASSERT_TRUE(Start(Path));
    module.config.ClearClipboard = true;
    platform.clipboard.Set(test::PlainPicture(3, 3));
    DropShow("C:\\shows\\x.tvs", "");
    EXPECT_TRUE(module.StartedAsShow);
    Key(KeyCode::Escape);
    EXPECT_FALSE(module.StartedAsShow);
    Expect({.text = "There is an image on the clipboard.\r\n\r\n"
                    "Do you want this data to be available to other applications?",
            .icon = forms::BoxIcon::Question,
            .buttons = forms::BoxButtons::YesNo,
            .reply = forms::Answer::No});
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(platform.clipboard.timesCleared, 1);
}

TEST_F(StageLifeTest, TheViewOfOneImageTouchesNoSound) {
    ASSERT_TRUE(Start(Path));
    module.config.SoundMode = 1;
    module.config.SoundFile = "C:\\shows\\a.wav";
    module.config.TopMostWindow = true;
    seen = [this] {
        ++views;
        EXPECT_FALSE(toolkit.VisibleWindow("MainViewFrm")->topmost);
        Key(KeyCode::Escape);
        EXPECT_FALSE(toolkit.VisibleWindow("MainViewFrm")->topmost);
    };
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 1);
    EXPECT_EQ(platform.sound.calls, Texts{});
    EXPECT_TRUE(toolkit.VisibleWindow("MainViewFrm")->topmost);
}

TEST_F(StageLifeTest, AfterAnAnimationImagesAreStillAgain) {
    const std::string animated = "C:\\p\\a.gif";
    platform.disks.PutFile(animated, test::AnimatedGif());
    ASSERT_TRUE(Start(animated));
    seen = [&] {
        ++views;
        EXPECT_EQ(Stage().Gif89a1.FileName.Get(), views == 1 ? animated : "");
        EXPECT_EQ(Stage().Image1.Picture.Get().Empty(), views == 1);
    };
    Choose(View().menu.mnuAnimatedGIF);
    EXPECT_FALSE(module.StageImageAnimated);
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 2);
}

}  // namespace
}  // namespace tavrix
