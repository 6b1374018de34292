#include "viewer/AutomaticSize.h"

#include "ViewerTest.h"

namespace tavrix::test {
namespace {

struct SizeCase {
    const char* what;
    float imageWidth;
    float imageHeight;
    WindowSize window;
    float twipsPerPixelX = 15;
    float twipsPerPixelY = 15;
};

void PrintTo(const SizeCase& c, std::ostream* out) {
    *out << c.what;
}

class AutomaticSizeRule : public ::testing::TestWithParam<SizeCase> {};

// A screen of 19200 by 15360; borders of 120 each way, menu bar and caption 585.
TEST_P(AutomaticSizeRule, GivesTheWindow) {
    const SizeCase& c = GetParam();
    const WindowSize size = AutomaticSize({.imageWidth = c.imageWidth,
                                           .imageHeight = c.imageHeight,
                                           .frameWidth = 120,
                                           .frameHeight = 120,
                                           .chromeHeight = 585,
                                           .screenWidth = 19200,
                                           .screenHeight = 15360,
                                           .twipsPerPixelX = c.twipsPerPixelX,
                                           .twipsPerPixelY = c.twipsPerPixelY});
    EXPECT_FLOAT_EQ(size.width, c.window.width);
    EXPECT_FLOAT_EQ(size.height, c.window.height);
}

INSTANTIATE_TEST_SUITE_P(
    Branches, AutomaticSizeRule,
    ::testing::Values(SizeCase{"small both ways", 1500, 1500, {4565, 4645}},
                      SizeCase{"just too small both ways", 4564, 4644, {4565, 4645}},
                      SizeCase{"narrow takes the bare height", 4564, 6000, {4565, 6000}},
                      SizeCase{"narrow and exactly high enough", 1500, 4645, {4565, 4645}},
                      SizeCase{"narrow and higher than the screen", 1500, 20000, {4565, 20000}},
                      SizeCase{"low takes the bare width", 6000, 4644, {6000, 4645}},
                      SizeCase{"low and wider than the screen", 30000, 100, {30000, 4645}},
                      SizeCase{"exactly the minimum fits", 4565, 4645, {4700, 5365}},
                      SizeCase{"fits", 9600, 7200, {9735, 7920}},
                      SizeCase{"fits, one pixel each way of its own", 9600, 7200, {9730, 7917}, 10, 12},
                      SizeCase{"fits to the twip", 19080, 14655, {19215, 15375}},
                      SizeCase{"too wide", 19081, 7200, {19200, 8148}},
                      SizeCase{"too wide adds a pixel across", 19081, 7200, {19200, 8143}, 10, 12},
                      SizeCase{"too wide, the bar just fits", 19081, 14412, {19200, 15360}},
                      SizeCase{"too wide, and the bar makes it too high", 19081, 14413, {19200, 15360}},
                      SizeCase{"too high", 9600, 14656, {9963, 15360}},
                      SizeCase{"too high adds a pixel down", 9600, 14656, {9960, 15360}, 10, 12},
                      SizeCase{"too high, and the bar makes it too wide", 19000, 14656, {19200, 15360}},
                      SizeCase{"too wide and too high", 30000, 30000, {19200, 15360}}));

class AutomaticSizeTest : public ViewerTest {
  protected:
    AutomaticSizeTest() { Setting("AutosizeWindow", "True"); }

    /// Another picture comes on show, as from an edit.
    void Show(int width, int height) { View().MainImage.Picture = PlainPicture(width, height); }
    void ExpectWindow(float left, float top, float width, float height) {
        EXPECT_FLOAT_EQ(View().Left, left);
        EXPECT_FLOAT_EQ(View().Top, top);
        EXPECT_FLOAT_EQ(View().Width, width);
        EXPECT_FLOAT_EQ(View().Height, height);
    }
};

TEST_F(AutomaticSizeTest, TheWindowJumpsToTheCornerAndTakesTheSize) {
    ASSERT_TRUE(Start());
    Place({200, 100, 700, 500});
    Show(640, 480);
    ExpectWindow(0, 0, 9735, 7920);
    EXPECT_FALSE(View().hsbPict.Visible);
    EXPECT_FALSE(View().vsbPict.Visible);
    EXPECT_FLOAT_EQ(View().picFrame.Width, 9600);
    EXPECT_FLOAT_EQ(View().picFrame.Height, 7200);
}

TEST_F(AutomaticSizeTest, ASmallImageJumpsToTheCornerToo) {
    ASSERT_TRUE(Start());
    Place({200, 100, 700, 500});
    Show(20, 20);
    ExpectWindow(0, 0, 4565, 4645);
}

TEST_F(AutomaticSizeTest, AnImageLargerThanTheScreenFillsIt) {
    ASSERT_TRUE(Start());
    Show(2000, 1500);
    ExpectWindow(0, 0, 19200, 15360);
    EXPECT_TRUE(View().hsbPict.Visible);
    EXPECT_TRUE(View().vsbPict.Visible);
}

TEST_F(AutomaticSizeTest, NoImageMakesItLargerThanTheScreen) {
    ASSERT_TRUE(Start());
    Show(250, 3000);
    ExpectWindow(0, 0, 4565, 15360);
    EXPECT_TRUE(View().vsbPict.Visible);
    EXPECT_FALSE(View().hsbPict.Visible);
    EXPECT_FLOAT_EQ(static_cast<float>(View().vsbPict.Max) + View().picFrame.Height, 3000 * 15);
    Show(3000, 250);
    ExpectWindow(0, 0, 19200, 4645);
    EXPECT_TRUE(View().hsbPict.Visible);
    Show(1272, 977);  // fits, but for the pixel that is added each way
    ExpectWindow(0, 0, 19200, 15360);
}

TEST_F(AutomaticSizeTest, ItKeepsClearOfThePanelsOfTheDesktop) {
    toolkit.usableArea = PixelRect{60, 40, 1200, 900};
    ASSERT_TRUE(Start());
    ExpectWindow(900, 600, 9510, 7110);
    Show(2000, 1500);
    ExpectWindow(900, 600, 18000, 13500);
    Show(250, 3000);
    ExpectWindow(900, 600, 4565, 13500);
    Show(640, 480);
    ExpectWindow(900, 600, 9735, 7920);
    Show(600, 950);
    ExpectWindow(900, 600, 9135, 13500);
}

TEST_F(AutomaticSizeTest, ASavedPlaceKeepsClearOfThemToo) {
    toolkit.usableArea = PixelRect{0, 40, 1280, 944};
    Setting("SaveWindowSize", "True");
    Setting("MainPosX", "9000");
    Setting("MainPosY", "0");
    Setting("MainSizeX", "10200");
    Setting("MainSizeY", "15360");
    ASSERT_TRUE(Start());
    ExpectWindow(9000, 600, 10200, 14160);
}

TEST_F(AutomaticSizeTest, TheSettingSwitchesItOff) {
    Setting("AutosizeWindow", "False");
    ASSERT_TRUE(Start());
    Place({200, 100, 700, 500});
    Show(640, 480);
    ExpectWindow(3000, 1500, 10500, 7500);
}

TEST_F(AutomaticSizeTest, AMaximisedWindowStaysAsItIs) {
    ASSERT_TRUE(Start());
    View().WindowState = forms::WindowState::Maximized;
    Place({0, 0, 1280, 1024}, forms::WindowState::Maximized);
    const int asked = Window().placementsAsked;
    Show(640, 480);
    EXPECT_EQ(View().WindowState.Get(), forms::WindowState::Maximized);
    ExpectWindow(0, 0, 19200, 15360);
    EXPECT_EQ(Window().placementsAsked, asked);
}

TEST_F(AutomaticSizeTest, SoDoesAMinimisedOne) {
    ASSERT_TRUE(Start());
    Place({0, 0, 160, 24}, forms::WindowState::Minimized);
    Show(640, 480);
    EXPECT_EQ(View().WindowState.Get(), forms::WindowState::Minimized);
    EXPECT_FLOAT_EQ(View().Width, 9510);
}

TEST_F(AutomaticSizeTest, AtTwiceTheScaleAPictureThatFitsHasNoBars) {
    toolkit.screen = {2560, 2048, 7.5F, 7.5F, 24};
    PutPicture(ImagePath, 1280, 960);
    ASSERT_TRUE(Start(ImagePath));
    // Metrics are device pixels: borders of 8, menu bar and caption of 39.
    ExpectWindow(0, 0, 9600 + 60 + 7.5F, 7200 + 60 + 292 + 7.5F);
    EXPECT_FALSE(View().hsbPict.Visible);
    EXPECT_FALSE(View().vsbPict.Visible);
    EXPECT_FLOAT_EQ(View().picFrame.Width, 9600);
    EXPECT_FLOAT_EQ(View().picFrame.Height, 7200);
}

TEST_F(AutomaticSizeTest, NorAtAScaleThatIsNoWholeNumber) {
    for (const float scale : {1.1F, 1.25F, 1.5F, 1.75F, 2.25F, 3.3F}) {
        toolkit.screen = {4000, 3000, 15 / scale, 15 / scale, 24};
        PutPicture(ImagePath, 1203, 1107);
        ASSERT_TRUE(Start(ImagePath));
        for (int more = 0; more < 40; ++more) {
            Show(1203 + more, 1107 + more);
            EXPECT_FALSE(View().hsbPict.Visible) << scale << ' ' << more;
            EXPECT_FALSE(View().vsbPict.Visible) << scale << ' ' << more;
        }
    }
}

TEST_F(AutomaticSizeTest, AtTwiceTheScaleALowPictureTakesItsBareWidth) {
    toolkit.screen = {2560, 2048, 7.5F, 7.5F, 24};
    PutPicture(ImagePath, 640, 480);
    ASSERT_TRUE(Start(ImagePath));
    ExpectWindow(0, 0, 4800, 4645);
}

}  // namespace
}  // namespace tavrix::test
