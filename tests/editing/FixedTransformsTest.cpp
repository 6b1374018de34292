#include "editing/turning/FixedTransforms.h"

#include <cstdint>
#include <string>

#include "EditingTest.h"
#include "editing/frame/ScratchPicture.h"
#include "editing/resizing/ResizeImage.h"
#include "editing/turning/RotateMainImage.h"

namespace tavrix::test {
namespace {

constexpr Pixel White = OpaquePixel(255, 255, 255);

class FixedTransforms : public EditingTest {
  protected:
    static constexpr const char* NoSmaller = "You may not make the current image any smaller...";
    static constexpr const char* NoLarger = "You may not make the current image any larger...";

    headless::HeadlessCanvasPeer& ImagePeer() {
        return *static_cast<headless::HeadlessCanvasPeer*>(View().MainImage.Peer());
    }
    void ExpectSize(int width, int height) {
        EXPECT_EQ(View().MainImage.PixelBounds().width, width);
        EXPECT_EQ(View().MainImage.PixelBounds().height, height);
        const auto written = Decoded(ContentOf(Working));
        ASSERT_TRUE(written);
        EXPECT_EQ(written->Width(), width);
        EXPECT_EQ(written->Height(), height);
    }
    /// A resize is refused after its undo copy has been made.
    void ExpectRefused(forms::Menu& entry, const std::string& text, const Surface& before) {
        Expect({.text = text});
        Choose(entry);
        EXPECT_EQ(module.CurrentImage, Opened);
        EXPECT_EQ(View().Caption.Get(), std::string("Tavrix - [") + Opened + "]");
        ExpectShown(before);
        EXPECT_TRUE(platform.disks.Exists(Undoing));
        EXPECT_FALSE(platform.disks.Exists(Working));
        EXPECT_TRUE(Menus().mnuUndo.Enabled);
        ExpectIdle();
    }
    /// How often the image is painted, and how often messages run.
    template <class Work>
    std::pair<int, int> SeenOf(Work work) {
        const int paintings = ImagePeer().paintings;
        const int yields = toolkit.Yields();
        work();
        return {ImagePeer().paintings - paintings, toolkit.Yields() - yields};
    }
    void OpenSquare(int side) {
        platform.disks.PutFile(Opened, BitmapOf(Different(side, side)));
        module.CurrentImage.clear();
        View().Deliver(forms::DropEvent{{Opened}});
    }
    /// SeenOf a square picture that is turned by no quarters.
    std::pair<int, int> WorkOfATurn(int side) {
        OpenSquare(side);
        CopyToPictureTemp(View());
        return SeenOf([&] { RotateMainImage(View(), 0.5F); });
    }
};

TEST_F(FixedTransforms, AHalfTurnReflectsInTheCentreAndLeavesTheFirstRowAndColumn) {
    const Surface before = Different(60, 60);
    StartWith(before);
    Choose(Menus().mnu180Degrees);
    const Surface after = Shown();
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 60; ++x) {
            const Pixel expected = x == 0 || y == 0 ? White : *PixelAt(before, 60 - x, 60 - y);
            ASSERT_EQ(*PixelAt(after, x, y), expected) << x << " " << y;
        }
    }
}

TEST_F(FixedTransforms, AnOddPictureKeepsTheBackgroundAtItsLastSidesToo) {
    StartWith(Different(61, 61));
    Choose(Menus().mnu180Degrees);
    const Surface after = Shown();
    for (int i = 0; i < 61; ++i) {
        EXPECT_EQ(*PixelAt(after, i, 0), White);
        EXPECT_EQ(*PixelAt(after, 0, i), White);
        EXPECT_EQ(*PixelAt(after, i, 60), White);
        EXPECT_EQ(*PixelAt(after, 60, i), White);
    }
    EXPECT_NE(*PixelAt(after, 30, 30), White);
}

TEST_F(FixedTransforms, AQuarterTurnClockwiseTurnsRightToBelow) {
    Surface before = Cleared(100, 50);
    PutPixel(before, 50 + 20, 25, OpaquePixel(255, 0, 0));
    StartWith(before);
    Choose(Menus().mnu90CW);
    ExpectSize(50, 100);
    EXPECT_EQ(*PixelAt(Shown(), 25, 50 + 20), OpaquePixel(255, 0, 0));

    Choose(Menus().mnu90CCW);
    ExpectSize(100, 50);
    EXPECT_EQ(*PixelAt(Shown(), 50 + 20, 25), OpaquePixel(255, 0, 0));
    Choose(Menus().mnu90CCW);
    EXPECT_EQ(*PixelAt(Shown(), 25, 50 - 20), OpaquePixel(255, 0, 0));
}

TEST_F(FixedTransforms, ARotationLaysTheWindowOutAndScrollsHome) {
    StartWithImage(1200, 100);
    ASSERT_TRUE(View().hsbPict.Visible);
    ASSERT_FALSE(View().vsbPict.Visible);
    View().hsbPict.Value = 450;
    Choose(Menus().mnu90CW);
    EXPECT_FALSE(View().hsbPict.Visible);
    EXPECT_TRUE(View().vsbPict.Visible);
    EXPECT_EQ(View().hsbPict.Value.Get(), 0);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    EXPECT_EQ(View().MainImage.Left.Get(), 0);
    EXPECT_EQ(View().picFrame.PixelBounds().width, 100);

    View().vsbPict.Value = 300;
    Choose(Menus().mnu180Degrees);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    EXPECT_EQ(View().MainImage.Top.Get(), 0);
}

TEST_F(FixedTransforms, ARotationIsSeenToArrive) {
    StartWithImage(20, 20);
    const auto [fewPaintings, fewYields] = WorkOfATurn(100);
    const auto [manyPaintings, manyYields] = WorkOfATurn(420);
    // 50 rows, and 210: messages run after each, the image is painted after each 27th.
    EXPECT_EQ(manyYields - fewYields, 160);
    EXPECT_EQ(manyPaintings - fewPaintings, 210 / 27 - 50 / 27);
}

TEST_F(FixedTransforms, ATurnByQuartersIsPaintedOnce) {
    StartWithImage(20, 20);
    for (forms::Menu* entry : {&Menus().mnu90CW, &Menus().mnu90CCW, &Menus().mnu180Degrees}) {
        const auto seenOf = [&](int side) {
            OpenSquare(side);
            return SeenOf([&] { Choose(*entry); });
        };
        const auto few = seenOf(20);
        EXPECT_EQ(few.first, 1);
        EXPECT_EQ(seenOf(420), few) << "as soon as it is seen there is nothing more to come";
    }
}

TEST_F(FixedTransforms, ARotationIsPaintedEvery27thRow) {
    StartWithImage(20, 20);
    const int few = WorkOfATurn(20).first;
    for (const auto& [rows, paintings] :
         {std::pair{24, 0}, {25, 0}, {26, 0}, {27, 1}, {28, 1}, {52, 1}, {53, 1}, {54, 2}, {80, 2}, {81, 3}})
        EXPECT_EQ(WorkOfATurn(2 * rows).first - few, paintings) << rows << " rows";
}

TEST_F(FixedTransforms, ARotationBeyond16BitsLeavesTheBackground) {
    StartWithImage(65540, 1);
    Choose(Menus().mnu180Degrees);
    ExpectEdited(Cleared(65540, 1));
    ExpectUndo("&Undo Rotate 180°", true);
    ExpectNothingLeft();
    Choose(Menus().mnuUndo);
    ExpectEdited(Different(65540, 1));
}

TEST_F(FixedTransforms, FlipsChangeNeitherSizeNorScrollPosition) {
    StartWithImage(900, 800);
    View().hsbPict.Value = 300;
    View().vsbPict.Value = 450;
    int resizes = 0;
    const auto laysOut = View().MainImage.OnResize;
    View().MainImage.OnResize = [&] { ++resizes; };
    for (forms::Menu* entry : {&Menus().mnuFlipHorizontal, &Menus().mnuFlipVertically}) {
        Choose(*entry);
        ExpectSize(900, 800);
        EXPECT_EQ(View().hsbPict.Value.Get(), 300);
        EXPECT_EQ(View().vsbPict.Value.Get(), 450);
        EXPECT_EQ(View().MainImage.Left.Get(), -300);
        EXPECT_EQ(View().MainImage.Top.Get(), -450);
    }
    EXPECT_EQ(resizes, 0);
    ExpectShown(Mirrored(Mirrored(Different(900, 800), true), false));
}

TEST_F(FixedTransforms, FlipsKeepASizeBetweenPixels) {
    StartWithImage(101, 99);
    Choose(Menus().mnu25Smaller);  // 1136 by 1114 twips
    const Surface smaller = Stretched(Different(101, 99), -0.25);
    ExpectEdited(smaller);
    EXPECT_EQ(View().MainImage.Width.Get(), 1136);
    Choose(Menus().mnuFlipHorizontal);
    ExpectEdited(Mirrored(smaller, true));
    EXPECT_EQ(View().MainImage.Width.Get(), 1136);
}

TEST_F(FixedTransforms, ResizesGoByTwips) {
    StartWithImage(32, 90);
    Choose(Menus().mnu25Smaller);  // 1012 twips, 67.5 pixels less a fraction
    ExpectSize(24, 67);
    EXPECT_EQ(View().MainImage.Height.Get(), 1012);
    Choose(Menus().mnu25Smaller);  // 759 twips; 67 pixels would make 754 and one pixel less
    EXPECT_EQ(View().MainImage.Height.Get(), 759);
    ExpectSize(18, 51);
}

TEST_F(FixedTransforms, OneSideBelow16PixelsIsNoRefusal) {
    StartWithImage(20, 100);
    Choose(Menus().mnu25Smaller);
    ExpectEdited(Stretched(Different(20, 100), -0.25));
    ExpectSize(15, 75);
}

TEST_F(FixedTransforms, BothSidesBelow16PixelsAreRefusedAfterTheUndoCopy) {
    StartWithImage(20, 20);
    ExpectRefused(Menus().mnu25Smaller, NoSmaller, Different(20, 20));
    ExpectUndo("&Undo Resize 25% Smaller", true);
    ExpectRefused(Menus().mnu50Smaller, NoSmaller, Different(20, 20));
    ExpectUndo("&Undo Resize 50% Smaller", true);

    Choose(Menus().mnu25Larger);
    ExpectEdited(Stretched(Different(20, 20), 0.25));
}

TEST_F(FixedTransforms, SixteenPixelsAreNotTooSmall) {
    StartWithImage(32, 32);
    Choose(Menus().mnu50Smaller);
    ExpectSize(16, 16);
}

TEST_F(FixedTransforms, OneSideAbove10000PixelsIsNoRefusal) {
    StartWithImage(8000, 100);
    Choose(Menus().mnu50Larger);
    ExpectSize(12000, 150);
    ExpectShown(Stretched(Different(8000, 100), 0.5));
}

TEST_F(FixedTransforms, BothSidesAbove10000PixelsAreRefused) {
    StartWithImage(30, 20);
    const EditFrame edit(View(), {.undo = "&Undo Resize"});
    const auto resize = [&](int width, int height) {
        edit.RunFromMenu([&] { return ResizeImage(View(), edit, width, height); });
    };
    Expect({.text = NoLarger});
    resize(10000 * 15 + 1, 10000 * 15 + 1);
    EXPECT_EQ(module.CurrentImage, Opened);
    ExpectShown(Different(30, 20));
    resize(10000 * 15 + 15, 15);
    ExpectSize(10001, 1);
}

TEST_F(FixedTransforms, AResizeLaysOutAWindowThatSizesItself) {
    StartWithImage(600, 500);
    module.config.AutosizeWindow = true;
    Choose(Menus().mnu25Larger);
    EXPECT_EQ(View().picFrame.PixelBounds().width, 750);
    EXPECT_EQ(View().picFrame.PixelBounds().height, 625);
    EXPECT_EQ(View().Left.Get(), 0);
    EXPECT_FALSE(View().hsbPict.Visible);
    ExpectEdited(Stretched(Different(600, 500), 0.25));
}

TEST_F(FixedTransforms, AResizeLeavesTheScrollBarsWhereTheyAre) {
    StartWithImage(1200, 1000);
    View().hsbPict.Value = 300;
    View().vsbPict.Value = 450;
    Choose(Menus().mnu25Larger);
    EXPECT_EQ(View().hsbPict.Value.Get(), 300);
    EXPECT_EQ(View().vsbPict.Value.Get(), 450);
    ExpectSize(1500, 1250);
}

TEST_F(FixedTransforms, AResizeLaysOutAWindowThatDoesNotSizeItself) {
    StartWithImage(300, 200);
    Choose(Menus().mnu50Larger);
    Choose(Menus().mnu50Larger);
    EXPECT_TRUE(View().hsbPict.Visible) << "675 pixels in 626";
    EXPECT_TRUE(View().vsbPict.Visible) << "450 pixels in 427";
    EXPECT_EQ(View().picFrame.Width.Get(), View().ScaleWidth() - MainViewFrm::BarThickness);
    EXPECT_EQ(View().picFrame.Height.Get(), View().ScaleHeight() - MainViewFrm::BarThickness);
    EXPECT_EQ(View().hsbPict.Max.Get(), 675 * 15 - static_cast<int>(View().picFrame.Width.Get()));
}

TEST_F(FixedTransforms, AResizeLaysOutAMaximisedWindow) {
    StartWithImage(300, 200);
    module.config.AutosizeWindow = true;
    Place({0, 0, 1280, 1024}, forms::WindowState::Maximized);
    Choose(Menus().mnu50Larger);
    EXPECT_EQ(View().picFrame.PixelBounds().width, 450);
    EXPECT_EQ(View().picFrame.PixelBounds().height, 300);
    EXPECT_EQ(View().WindowState.Get(), forms::WindowState::Maximized);
    ExpectEdited(Stretched(Different(300, 200), 0.5));
}

TEST_F(FixedTransforms, AResizeBringsTheBarsBackIntoTheirRange) {
    StartWithImage(1900, 1500);
    Press(forms::KeyCode::End);
    Choose(Menus().mnu50Smaller);
    EXPECT_TRUE(View().hsbPict.Visible);
    EXPECT_EQ(View().hsbPict.Value.Get(), View().hsbPict.Max.Get());
    EXPECT_EQ(View().vsbPict.Value.Get(), View().vsbPict.Max.Get());
    EXPECT_EQ(View().MainImage.Left.Get(), -static_cast<float>(View().hsbPict.Max.Get()));
    Choose(Menus().mnu50Smaller);
    EXPECT_FALSE(View().hsbPict.Visible);
    EXPECT_FALSE(View().vsbPict.Visible);
    EXPECT_EQ(View().MainImage.Left.Get(), 0);
    EXPECT_EQ(View().MainImage.Top.Get(), 0);
    EXPECT_EQ(View().picFrame.PixelBounds().width, 475);
}

TEST_F(FixedTransforms, AResizeLaysOutOnce) {
    // Whether the window sizes itself or not: six times messages run, one of them in the layout.
    StartWithImage(60, 50);
    View().Move(0, 0, MainViewFrm::MinWidth, MainViewFrm::MinHeight);
    for (const bool sizesItself : {false, true}) {
        module.config.AutosizeWindow = sizesItself;
        const int yields = toolkit.Yields();
        Choose(Menus().mnu25Larger);
        EXPECT_EQ(toolkit.Yields() - yields, 6) << "sizes itself: " << sizesItself;
    }
}

TEST_F(FixedTransforms, TheKeysRunTheEdits) {
    using namespace forms;
    StartWithImage(64, 96);
    Press(KeyCode::Right, ShiftMask::Alt);
    ExpectUndo("&Undo Rotate 90° CW", true);
    ExpectSize(96, 64);
    Press(KeyCode::Left, ShiftMask::Alt);
    ExpectUndo("&Undo Rotate 90° CCW", true);
    Press(KeyCode::Down, ShiftMask::Alt);
    ExpectUndo("&Undo Rotate 180°", true);
    Press('1');
    ExpectUndo("&Undo Resize 25% Smaller", true);
    ExpectSize(48, 72);
    Press('4');
    ExpectUndo("&Undo Resize 50% Larger", true);
    ExpectSize(72, 108);
}

TEST_F(FixedTransforms, ALargerTextSizeOfTheDesktopChangesNoPixel) {
    toolkit.screen.twipsPerPixelX = toolkit.screen.twipsPerPixelY = 12;
    for (const FixedEdit& edit : FixedEdits) {
        SCOPED_TRACE(edit.name);
        if (app.Loaded<MainViewFrm>() == nullptr) StartWithImage(64, 96);
        module.CurrentImage.clear();
        View().Deliver(forms::DropEvent{{Opened}});
        Choose(EntryOf(edit));
        ExpectEdited(edit.expected(Different(64, 96)));
    }
}

}  // namespace
}  // namespace tavrix::test
