#include <cmath>

#include "ViewerTest.h"

namespace tavrix::test {
namespace {

using forms::WindowState;

class LayoutTest : public ViewerTest {
  protected:
    /// A picture of this size in a window with this inner size, all in pixels.
    void Lay(int width, int height, int innerWidth = 626, int innerHeight = 427) {
        StartWithPicture(width, height);
        DragToInner(innerWidth, innerHeight);
        ASSERT_FLOAT_EQ(View().ScaleWidth(), static_cast<float>(innerWidth * 15));
        ASSERT_FLOAT_EQ(View().ScaleHeight(), static_cast<float>(innerHeight * 15));
    }
    void ExpectBars(bool across, bool down) {
        EXPECT_EQ(View().hsbPict.Visible.Get(), across);
        EXPECT_EQ(View().vsbPict.Visible.Get(), down);
    }
    static void ExpectAt(const forms::Control& control, float left, float top, float width, float height) {
        EXPECT_FLOAT_EQ(control.Left, left) << control.Name();
        EXPECT_FLOAT_EQ(control.Top, top) << control.Name();
        EXPECT_FLOAT_EQ(control.Width, width) << control.Name();
        EXPECT_FLOAT_EQ(control.Height, height) << control.Name();
    }
    void ExpectButtonAt(float left, float top) { ExpectAt(View().CmdFullScreen, left, top, 228, 228); }
};

TEST_F(LayoutTest, TheFrameHugsASmallImage) {
    Lay(100, 80);
    ExpectBars(false, false);
    ExpectAt(View().picFrame, 0, 0, 1500, 1200);
    ExpectAt(View().MainImage, 0, 0, 1500, 1200);
    ExpectButtonAt(9390 - 228, 6405 - 228);
}

TEST_F(LayoutTest, AnImageOfExactlyTheInnerSizeNeedsNoBars) {
    Lay(626, 427);
    ExpectBars(false, false);
    ExpectAt(View().picFrame, 0, 0, 9390, 6405);
    ExpectButtonAt(9390 - 228, 6405 - 228);
}

TEST_F(LayoutTest, ALargeImageHasBothBars) {
    Lay(1000, 900);
    ExpectBars(true, true);
    ExpectAt(View().picFrame, 0, 0, 9162, 6177);
    ExpectAt(View().hsbPict, 0, 6177, 9162, 228);
    ExpectAt(View().vsbPict, 9162, 0, 228, 6177);
    EXPECT_EQ(View().hsbPict.Min.Get(), 0);
    EXPECT_EQ(View().hsbPict.Max.Get(), 15000 - 9162);
    EXPECT_EQ(View().hsbPict.LargeChange.Get(), 9162);
    EXPECT_EQ(View().vsbPict.Min.Get(), 0);
    EXPECT_EQ(View().vsbPict.Max.Get(), 13500 - 6177);
    EXPECT_EQ(View().vsbPict.LargeChange.Get(), 6177);
    ExpectButtonAt(9162, 6177);
}

TEST_F(LayoutTest, TheSpaceOfOneBarMayCallForTheOther) {
    Lay(800, 420);  // 6300 twips high: less than 6405, more than 6405 - 228
    ExpectBars(true, true);
    ExpectAt(View().picFrame, 0, 0, 9162, 6177);
}

TEST_F(LayoutTest, TheSpaceOfTheBarDownMayCallForTheOneAcross) {
    Lay(620, 800);  // 9300 twips wide: less than 9390, more than 9390 - 228
    ExpectBars(true, true);
    ExpectAt(View().picFrame, 0, 0, 9162, 6177);
}

TEST_F(LayoutTest, ABarAcrossAloneLiesUnderAFrameThatHugsTheImage) {
    Lay(800, 100);
    ExpectBars(true, false);
    ExpectAt(View().picFrame, 0, 0, 9390, 1500);
    ExpectAt(View().hsbPict, 0, 1500, 9390, 228);
    EXPECT_EQ(View().hsbPict.Max.Get(), 12000 - 9390);
    ExpectButtonAt(9390 - 228, 1500 - 228);
}

TEST_F(LayoutTest, ABarAcrossWithLittleRoomLeavesTheButtonInTheCorner) {
    Lay(800, 400);  // 6405 < 6000 + 456
    ExpectBars(true, false);
    ExpectAt(View().picFrame, 0, 0, 9390, 6000);
    ExpectButtonAt(9390 - 228, 6405 - 228);
}

TEST_F(LayoutTest, ABarDownAloneLiesBesideAFrameThatHugsTheImage) {
    Lay(100, 800);
    ExpectBars(false, true);
    ExpectAt(View().picFrame, 0, 0, 1500, 6405);
    ExpectAt(View().vsbPict, 1500, 0, 228, 6405);
    EXPECT_EQ(View().vsbPict.Max.Get(), 12000 - 6405);
    ExpectButtonAt(1500 - 228, 6405 - 228);
}

TEST_F(LayoutTest, ABarDownWithLittleRoomLeavesTheButtonInTheCorner) {
    Lay(600, 800);  // 9390 < 9000 + 456
    ExpectBars(false, true);
    ExpectButtonAt(9390 - 228, 6405 - 228);
}

TEST_F(LayoutTest, WithoutRoomForABarAcrossTheFrameHasNoHeight) {
    toolkit.metrics[forms::SystemMetric::MenuBarHeight] = 280;
    StartWithPicture(800, 600);
    Place({0, 0, 500, 310});
    ASSERT_FLOAT_EQ(View().ScaleHeight(), 45);
    ExpectBars(true, true);
    EXPECT_FLOAT_EQ(View().picFrame.Height, 0);
    EXPECT_EQ(View().vsbPict.Max.Get(), 9000);
}

TEST_F(LayoutTest, TheBarsGoWhenTheWindowGrows) {
    Lay(1000, 900);
    EXPECT_FALSE(Press(forms::KeyCode::End));
    DragToInner(1100, 950);
    ExpectBars(false, false);
    ExpectAt(View().MainImage, 0, 0, 15000, 13500);
    EXPECT_EQ(View().hsbPict.Value.Get(), 0);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
}

TEST_F(LayoutTest, AScrolledImageFollowsTheShrinkingRange) {
    Lay(1000, 900);
    EXPECT_FALSE(Press(forms::KeyCode::End));
    DragToInner(900, 427);
    EXPECT_EQ(View().hsbPict.Max.Get(), 15000 - (13500 - 228));
    EXPECT_EQ(View().hsbPict.Value.Get(), View().hsbPict.Max.Get());
    EXPECT_FLOAT_EQ(View().MainImage.Left, -static_cast<float>(View().hsbPict.Max.Get()));
}

struct SnapCase {
    PixelRect dragged;
    float left;
    float top;
    float width;
    float height;
};

class SnapTest : public LayoutTest, public ::testing::WithParamInterface<SnapCase> {};

TEST_P(SnapTest, AWindowThatIsTooSmallSnapsBack) {
    ASSERT_TRUE(Start());
    const SnapCase& c = GetParam();
    Place(c.dragged);
    EXPECT_FLOAT_EQ(View().Left, c.left);
    EXPECT_FLOAT_EQ(View().Top, c.top);
    EXPECT_FLOAT_EQ(View().Width, c.width);
    EXPECT_FLOAT_EQ(View().Height, c.height);
    EXPECT_FLOAT_EQ(View().ScaleWidth(), std::round(View().Width / 15) * 15 - 120);
}

INSTANTIATE_TEST_SUITE_P(Dimensions, SnapTest,
                         ::testing::Values(SnapCase{{20, 10, 200, 200}, 300, 150, 4565, 4645},
                                           SnapCase{{20, 10, 200, 500}, 300, 150, 4565, 7500},
                                           SnapCase{{20, 10, 500, 200}, 300, 150, 7500, 4645},
                                           SnapCase{{20, 10, 305, 310}, 300, 150, 4575, 4650}));

TEST_F(LayoutTest, AWindowManagerThatRefusesTheMinimumIsNotAskedForEver) {
    toolkit.windowManager = [](const PixelRect& asked, WindowState) {
        return PixelRect{asked.left, asked.top, 250, 250};
    };
    StartWithPicture(1000, 900);
    const int before = Window().placementsAsked;
    Place({0, 0, 250, 250});
    for (int i = 0; i < 20; ++i)
        app.DoEvents();
    EXPECT_LE(Window().placementsAsked - before, 3);
    EXPECT_FLOAT_EQ(View().Width, 250 * 15);
    EXPECT_FLOAT_EQ(View().ScaleWidth(), 242 * 15);
    EXPECT_FLOAT_EQ(View().picFrame.Width, 242 * 15 - 228);

    // The next change that the user makes is answered again.
    Place({0, 0, 640, 480});
    app.DoEvents();
    EXPECT_FLOAT_EQ(View().Width, 640 * 15);
    ExpectBars(true, true);
}

TEST_F(LayoutTest, AMinimisedWindowIsNotLaidOut) {
    Lay(1000, 900);
    Place({0, 0, 160, 24}, WindowState::Minimized);
    EXPECT_FLOAT_EQ(View().Width, (626 + 8) * 15);
    View().CmdFullScreen.SetFocus();
    View().MainImage.Picture = PlainPicture(50, 50);
    View().Form_Resize();
    ExpectAt(View().picFrame, 0, 0, 9162, 6177);
    EXPECT_EQ(View().ActiveControl(), &View().CmdFullScreen);
    Place({0, 0, 634, 474});
    ExpectAt(View().picFrame, 0, 0, 750, 750);
}

TEST_F(LayoutTest, AMaximisedWindowIsLaidOutAtItsSize) {
    Lay(1000, 900);
    Place({0, 0, 1280, 1024}, WindowState::Maximized);
    ExpectBars(false, false);
    ExpectAt(View().picFrame, 0, 0, 15000, 13500);
}

TEST_F(LayoutTest, TheFocusGoesToTheHiddenHolder) {
    Lay(1000, 900);
    View().CmdFullScreen.SetFocus();
    ASSERT_EQ(View().ActiveControl(), &View().CmdFullScreen);
    View().Form_Resize();
    EXPECT_EQ(View().ActiveControl(), &View().PictureTemp);
    EXPECT_FALSE(View().PictureTemp.Visible);
}

TEST_F(LayoutTest, ABarHandsTheFocusOn) {
    Lay(1000, 900);
    for (forms::ScrollBar* bar : {&View().hsbPict, &View().vsbPict}) {
        bar->Deliver(forms::FocusEvent{true});
        EXPECT_EQ(View().ActiveControl(), &View().PictureTemp) << bar->Name();
    }
}

TEST_F(LayoutTest, MessagesRunInTheCourse) {
    Lay(1000, 900);
    const int before = toolkit.Yields();
    View().Form_Resize();
    EXPECT_EQ(toolkit.Yields(), before + 1);
}

}  // namespace
}  // namespace tavrix::test
