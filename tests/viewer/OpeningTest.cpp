#include "viewer/Opening.h"

#include "ViewerTest.h"
#include "base/RuntimeError.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;
using headless::Service;

class OpeningTest : public ViewerTest {
  protected:
    static constexpr const char* Other = "C:\\other\\y.bmp";
    static constexpr const char* Unsaved = "C:\\Temp\\Untitled.BMP";

    bool Open(const std::string& path) {
        return Ends([&] { LoadIntoMainView(View(), path, {"Unable to open the selected file."}); });
    }
    void ExpectStop(const std::string& text, const std::string& description) {
        Expect({.text = text + "\r\n\r\n" + description + "...", .icon = BoxIcon::Stop});
    }
    void ExpectDiscard(Answer reply) {
        Expect({.text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo,
                .reply = reply});
    }
    /// An edit has made the image on show the working file.
    void Edit(const std::string& path = Unsaved) {
        PutPicture(path, 60, 50);
        View().imageOnShow.Become(path);
    }
};

TEST_F(OpeningTest, AnImageTakesTheViewOver) {
    StartWithPicture(1000, 900);
    EXPECT_FALSE(Press(forms::KeyCode::End));
    PutPicture(Other, 800, 700);
    View().menu.mnuUndo.Enabled = true;
    EXPECT_FALSE(Open(Other));
    EXPECT_EQ(module.CurrentImage, Other);
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\other\\y.bmp]");
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\other");
    EXPECT_EQ(module.config.Recent[0], Other);
    EXPECT_EQ(View().menu.mnuLast1.Caption.Get(), "  C:\\other\\y.bmp");
    EXPECT_EQ(platform.shell.recent.back(), Other);
    EXPECT_FLOAT_EQ(View().MainImage.Width, 12000);
    EXPECT_FLOAT_EQ(View().MainImage.Left, 0);
    EXPECT_FLOAT_EQ(View().MainImage.Top, 0);
    EXPECT_EQ(View().hsbPict.Value.Get(), 0);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    EXPECT_EQ(View().hsbPict.Max.Get(), 12000 - 9162);
    EXPECT_FALSE(View().menu.mnuUndo.Enabled);
    ExpectIdle();
}

TEST_F(OpeningTest, TheFirstLetterIsRaisedButTheTitleIsAsItWas) {
    ASSERT_TRUE(Start());
    PutPicture(Other, 80, 70);
    EXPECT_FALSE(Open("c:\\other\\y.bmp"));
    EXPECT_EQ(module.CurrentImage, Other);
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [c:\\other\\y.bmp]");
}

TEST_F(OpeningTest, TheImageOnShowHasANormalPath) {
    ASSERT_TRUE(Start());
    PutPicture(Other, 80, 70);
    platform.files.ChangeFolder("C:\\other");
    for (const char* path : {"C:/other/y.bmp", "C:\\other\\..\\other\\\\y.bmp", "y.bmp", "/other/y.bmp"}) {
        EXPECT_FALSE(Open(path));
        EXPECT_EQ(module.CurrentImage, Other) << path;
        EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\other\\y.bmp]") << path;
        EXPECT_EQ(module.config.Recent[0], Other);
        EXPECT_EQ(module.config.Recent[1], "") << path;
    }
}

TEST_F(OpeningTest, TheFrameIsHiddenAndTheProgramBusyMeanwhile) {
    ASSERT_TRUE(Start());
    PutPicture(Other, 80, 70);
    bool hidden = false;
    bool busy = false;
    platform.faults.AtNth(Service::Pictures, 1, [&] {
        hidden = !View().picFrame.Visible;
        busy = toolkit.ScreenPointer() == forms::MousePointer::Hourglass;
    });
    EXPECT_FALSE(Open(Other));
    EXPECT_TRUE(hidden);
    EXPECT_TRUE(busy);
    ExpectIdle();
}

TEST_F(OpeningTest, TheFolderComesFirstThenTheImageThenTheDesktopThenTheMenus) {
    ASSERT_TRUE(Start());
    PutPicture(Other, 80, 70);
    int times = 0;
    platform.faults.AtNth(Service::Shell, 1, [&] {
        ++times;
        EXPECT_EQ(platform.files.CurrentFolder(), "C:\\other");
        EXPECT_EQ(module.CurrentImage, Other);
        EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\other\\y.bmp]");
        EXPECT_FALSE(View().menu.mnuEdit.Visible);
    });
    EXPECT_FALSE(Open(Other));
    EXPECT_EQ(times, 1);
    EXPECT_TRUE(View().menu.mnuEdit.Visible);
}

TEST_F(OpeningTest, AMenuClickMeanwhileDoesNothing) {
    StartWithPicture(100, 80);
    PutPicture(Other, 80, 70);
    toolkit.AtYield(1, [this] {
        Choose(View().menu.mnuClear);
        Choose(View().menu.mnuReloadImage);
        Choose(View().menu.mnuExit);
        View().Deliver(forms::DropEvent{{ImagePath}});
    });
    EXPECT_FALSE(Open(Other));
    EXPECT_EQ(module.CurrentImage, Other);
    EXPECT_EQ(platform.faults.Calls(Service::Pictures), 2);
    EXPECT_FALSE(platform.process.ended);
}

TEST_F(OpeningTest, ClosingTheWindowMeanwhileEndsTheProgram) {
    ASSERT_TRUE(Start());
    PutPicture(Other, 80, 70);
    toolkit.AtYield(1, [this] { View().Deliver(forms::CloseEvent{}); });
    EXPECT_TRUE(Open(Other));
    EXPECT_TRUE(platform.process.ended);
}

TEST_F(OpeningTest, AFullScreenViewOpensOnceTheProgramIsIdle) {
    Setting("ViewFullScreen", "True");
    ASSERT_TRUE(Start());
    PutPicture(Other, 80, 70);
    int runs = 0;
    View().menu.mnuFullScreen.Install([&] {
        ++runs;
        EXPECT_FALSE(module.Busy());
        EXPECT_FALSE(View().picFrame.Visible) << "the frame comes back afterwards";
        EXPECT_EQ(module.CurrentImage, Other);
        EXPECT_TRUE(View().menu.mnuFullScreen.Enabled);
    });
    EXPECT_FALSE(Open(Other));
    EXPECT_EQ(runs, 1);
    ExpectIdle();
}

TEST_F(OpeningTest, NoFullScreenViewOpensUnaskedOrAfterAFailure) {
    ASSERT_TRUE(Start());
    Count(View().menu.mnuFullScreen);
    PutPicture(Other, 80, 70);
    EXPECT_FALSE(Open(Other));
    module.config.ViewFullScreen = true;
    ExpectStop("Unable to open the selected file.", "File not found");
    EXPECT_FALSE(Open("C:\\other\\gone.bmp"));
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 0);
}

TEST_F(OpeningTest, AFailureIsToldAndLeavesTheEmptyView) {
    StartWithPicture(1000, 900);
    EXPECT_FALSE(Press(forms::KeyCode::End));
    platform.pictures.SetFailure(Other, RuntimeError(ErrorNumber::InvalidPicture));
    headless::ExpectedBox box{.text = "Unable to open the selected file.\r\n\r\n" +
                                      DescriptionOf(ErrorNumber::InvalidPicture) + "...",
                              .icon = BoxIcon::Stop};
    bool busy = false;
    box.whileOpen = [&] { busy = module.Busy(); };
    Expect(std::move(box));
    EXPECT_FALSE(Open(Other));
    EXPECT_TRUE(busy);
    ExpectEmptyView();
    ExpectIdle();
    EXPECT_EQ(module.config.Recent[0], ImagePath);
    EXPECT_FLOAT_EQ(View().picFrame.Width, View().ImageDefault.Width);
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p");
}

TEST_F(OpeningTest, TheCallerNamesTheTextAndTheTitle) {
    ASSERT_TRUE(Start());
    Expect({.text = "Nothing came of it.\r\n\r\nPath not found...",
            .icon = BoxIcon::Stop,
            .title = "Tavrix - [A Title]"});
    LoadIntoMainView(View(), "C:\\nowhere\\x.bmp", {"Nothing came of it.", "Tavrix - [A Title]"});
    ExpectEmptyView();
}

TEST_F(OpeningTest, AGifMayBeAnAnimation) {
    ASSERT_TRUE(Start());
    PutPicture("C:\\p\\x.gif", 10, 10);
    EXPECT_FALSE(Open("C:\\p\\x.gif"));
    EXPECT_TRUE(View().menu.mnuAnimatedGIF.Enabled);
}

TEST_F(OpeningTest, AFolderThatCannotBeEnteredIsNoFailure) {
    ASSERT_TRUE(Start());
    PutPicture(Other, 80, 70);
    platform.faults.FailAlways(Service::Files, "ChangeFolder", ErrorNumber::PathNotFound);
    EXPECT_FALSE(Open(Other));
    EXPECT_EQ(module.CurrentImage, Other);
    ExpectIdle();
}

TEST_F(OpeningTest, AWindowThatSizesItselfGoesToTheCornerForAnImage) {
    Setting("AutosizeWindow", "True");
    ASSERT_TRUE(Start());
    Place({200, 100, 700, 500});
    PutPicture(Other, 640, 480);
    EXPECT_FALSE(Open(Other));
    EXPECT_FLOAT_EQ(View().Left, 0);
    EXPECT_FLOAT_EQ(View().Top, 0);
    EXPECT_FLOAT_EQ(View().Width, 9735);
}

// Reload

TEST_F(OpeningTest, ReloadingReadsTheFileAgain) {
    StartWithPicture(1000, 900);
    EXPECT_FALSE(Press(forms::KeyCode::End));
    View().menu.mnuUndo.Enabled = true;
    View().menu.mnuUndo.Caption = "&Undo Crop";
    PutPicture(ImagePath, 700, 900);
    EXPECT_FALSE(Choose(View().menu.mnuReloadImage));
    EXPECT_FLOAT_EQ(View().MainImage.Width, 10500);
    EXPECT_EQ(View().hsbPict.Value.Get(), 0);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    EXPECT_EQ(module.CurrentImage, ImagePath);
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\p\\x.jpg]");
    EXPECT_TRUE(View().menu.mnuUndo.Enabled) << "the undo is not touched";
    EXPECT_EQ(View().menu.mnuUndo.Caption.Get(), "&Undo Crop");
    ExpectIdle();
}

TEST_F(OpeningTest, TheFrameIsHiddenAndTheProgramBusyWhileReloading) {
    StartWithPicture(100, 80);
    bool hidden = false;
    bool busy = false;
    platform.faults.AtNth(Service::Pictures, 1, [&] {
        hidden = !View().picFrame.Visible;
        busy = module.Busy();
    });
    EXPECT_FALSE(Choose(View().menu.mnuReloadImage));
    EXPECT_TRUE(hidden);
    EXPECT_TRUE(busy);
    ExpectIdle();
}

TEST_F(OpeningTest, ReloadingAsksNoQuestion) {
    StartWithPicture(100, 80);
    Edit();
    EXPECT_FALSE(Choose(View().menu.mnuReloadImage));
    EXPECT_EQ(module.CurrentImage, Unsaved);
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(OpeningTest, WithoutAnImageThereIsNothingToReload) {
    ASSERT_TRUE(Start());
    const int yields = toolkit.Yields();
    EXPECT_FALSE(Choose(View().menu.mnuReloadImage));
    EXPECT_EQ(toolkit.Yields(), yields);
    EXPECT_EQ(platform.faults.Calls(Service::Pictures), 0);
}

TEST_F(OpeningTest, AFailedReloadLeavesTheEmptyView) {
    StartWithPicture(100, 80);
    platform.disks.Remove(ImagePath);
    ExpectStop("Unable to open the selected file.", "File not found");
    EXPECT_FALSE(Choose(View().menu.mnuReloadImage));
    ExpectEmptyView();
    ExpectIdle();
}

// Clear

TEST_F(OpeningTest, ClearingLeavesTheEmptyView) {
    StartWithPicture(1000, 900);
    EXPECT_FALSE(Press(forms::KeyCode::End));
    EXPECT_FALSE(Choose(View().menu.mnuClear));
    ExpectEmptyView();
    ExpectIdle();
    EXPECT_EQ(View().PictureTemp.Picture.Get(), View().ImageDefault.Picture.Get());
    EXPECT_FALSE(View().hsbPict.Visible);
    EXPECT_FLOAT_EQ(View().picFrame.Width, View().ImageDefault.Width);
    EXPECT_EQ(module.config.Recent[0], ImagePath);
}

TEST_F(OpeningTest, ClearingWipesWhatWasDrawn) {
    ASSERT_TRUE(Start());
    View().MainImage.Bitmap().Fill(OpaquePixel(1, 2, 3));
    EXPECT_FALSE(Choose(View().menu.mnuClear));
    const auto* peer = static_cast<headless::HeadlessCanvasPeer*>(View().MainImage.Peer());
    EXPECT_NE(peer->ShownPixel(50, 50), OpaquePixel(1, 2, 3));
}

class UnsavedTest : public OpeningTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(UnsavedTest, ClearingAsksAndANoChangesNothing) {
    StartWithPicture(100, 80);
    Edit(GetParam());
    ExpectDiscard(Answer::No);
    EXPECT_FALSE(Choose(View().menu.mnuClear));
    EXPECT_EQ(module.CurrentImage, GetParam());
    EXPECT_FALSE(ShowsDefaultPicture());
    ExpectIdle();

    ExpectDiscard(Answer::Yes);
    EXPECT_FALSE(Choose(View().menu.mnuClear));
    ExpectEmptyView();
    ExpectIdle();
    EXPECT_TRUE(platform.disks.Exists(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(WorkingFiles, UnsavedTest,
                         ::testing::Values("C:\\Temp\\Untitled.BMP", "C:\\Tavrix\\Untitled.BMP"));

TEST_F(OpeningTest, TheWorkingFileIsKnownByItsExactSpelling) {
    StartWithPicture(100, 80);
    Edit("C:\\temp\\untitled.bmp");
    EXPECT_FALSE(Choose(View().menu.mnuClear));
    ExpectEmptyView();
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

}  // namespace
}  // namespace tavrix::test
