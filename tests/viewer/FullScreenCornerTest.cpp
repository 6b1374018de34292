// When the button in the corner of the main view is on show.

#include "ViewerTest.h"

namespace tavrix::test {
namespace {

class FullScreenCornerTest : public ViewerTest {
  protected:
    static constexpr int Inner = 600;  ///< pixels, each way

    /// A picture of this size in a window of the inner size.
    void Lay(int width, int height) {
        StartWithPicture(width, height);
        DragToInner(Inner, Inner);
    }
    [[nodiscard]] bool Shown() { return View().CmdFullScreen.Visible; }
    /// The pointer moves to a place of the window's inside, which is one of the picture too.
    void Point(int x, int y, int button = 0, int shift = 0) {
        toolkit.pointerPlace = {100 + x, 200 + y};
        EXPECT_FALSE(Mouse(View().MainImage, forms::MouseAction::Move, button, shift, x, y));
    }
    void PointAtCorner() { Point(Inner - 8, Inner - 8); }
    void PressTab(int shift = 0) {
        bool handled = false;
        View().Deliver(forms::KeyEvent{true, forms::KeyCode::Tab, shift, &handled});
        tabHandled = handled;
    }

    bool tabHandled = false;
};

TEST_F(FullScreenCornerTest, IsAboveAllThatLiesInItsCorner) {
    Lay(Inner, Inner);
    const auto& controls = View().Controls();
    EXPECT_EQ(controls.back(), &View().CmdFullScreen);
}

TEST_F(FullScreenCornerTest, LetsMessagesRunWithoutTheKeyboardBeforeItsCommand) {
    Lay(2 * Inner, 2 * Inner);
    Count(View().menu.mnuFullScreen);
    View().CmdFullScreen.SetFocus();
    int times = 0;
    toolkit.AtYield(1, [&] {
        ++times;
        EXPECT_EQ(Runs(View().menu.mnuFullScreen), 0);
        EXPECT_EQ(View().ActiveControl(), &View().PictureTemp);
    });
    View().CmdFullScreen.Deliver(forms::ClickEvent{});
    EXPECT_EQ(times, 1);
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 1);
}

TEST_F(FullScreenCornerTest, StandsWhereverABarIsOnShow) {
    for (const auto& [width, height] :
         {std::pair{900, 900}, {900, 300}, {300, 900}, {900, 599}, {590, 900}}) {
        Lay(width, height);
        EXPECT_TRUE(Shown()) << width << " x " << height;
    }
}

TEST_F(FullScreenCornerTest, StandsBesideAnImageThatDoesNotReachTheCorner) {
    for (const auto& [width, height] : {std::pair{100, 100}, {Inner, 300}, {300, Inner}}) {
        Lay(width, height);
        EXPECT_TRUE(Shown()) << width << " x " << height;
    }
}

TEST_F(FullScreenCornerTest, ComesWithThePointerWhereTheImageFillsTheCorner) {
    Lay(Inner, Inner);
    EXPECT_FALSE(Shown());
    Point(300, 300);
    EXPECT_FALSE(Shown());
    PointAtCorner();
    EXPECT_TRUE(Shown());
    Point(Inner - 30, Inner - 8);
    EXPECT_FALSE(Shown());
    PointAtCorner();
    EXPECT_TRUE(Shown());
    toolkit.pointerPlace.x += 5;
    toolkit.Advance(forms::Milliseconds(1000));
    EXPECT_TRUE(Shown());
    toolkit.pointerPlace.x += 50;  // beyond the window, which tells nothing
    toolkit.Advance(forms::Milliseconds(1000));
    EXPECT_FALSE(Shown());
}

TEST_F(FullScreenCornerTest, LeavesTheCornerToASelection) {
    Lay(Inner, Inner);
    Point(Inner - 8, Inner - 8, 0, forms::ShiftMask::Shift);
    EXPECT_FALSE(Shown());
    Point(Inner - 8, Inner - 8, forms::MouseButton::Left);
    EXPECT_FALSE(Shown());
}

TEST_F(FullScreenCornerTest, ComesAndGoesByTab) {
    Lay(Inner, Inner);
    PressTab();
    EXPECT_TRUE(tabHandled);
    EXPECT_TRUE(Shown());
    EXPECT_EQ(View().ActiveControl(), &View().CmdFullScreen);
    toolkit.Advance(forms::Milliseconds(5000));
    EXPECT_TRUE(Shown());
    PressTab();
    EXPECT_FALSE(Shown());
    EXPECT_EQ(View().ActiveControl(), &View().PictureTemp);
    PressTab(forms::ShiftMask::Ctrl);
    EXPECT_FALSE(tabHandled);
    EXPECT_FALSE(Shown());
}

TEST_F(FullScreenCornerTest, TabIsTheToolkitsWhereTheButtonStandsAnyway) {
    Lay(900, 900);
    PressTab();
    EXPECT_FALSE(tabHandled);
}

TEST_F(FullScreenCornerTest, IsNotThereWithoutAnImage) {
    ASSERT_TRUE(Start());
    DragToInner(Inner, Inner);
    EXPECT_FALSE(Shown());
    PressTab();
    EXPECT_FALSE(Shown());
    PointAtCorner();
    EXPECT_FALSE(Shown());
    View().Deliver(forms::MouseEvent{forms::MouseAction::Move, 0, 0, Inner - 8, Inner - 8});
    EXPECT_FALSE(Shown());
}

TEST_F(FullScreenCornerTest, GoesWithTheImageAndComesWithTheBars) {
    Lay(Inner, Inner);
    DragToInner(Inner - 50, Inner - 50);
    EXPECT_TRUE(Shown());
    DragToInner(Inner, Inner);
    EXPECT_FALSE(Shown());
    PointAtCorner();
    EXPECT_FALSE(Choose(View().menu.mnuClear));
    EXPECT_FALSE(Shown());
}

}  // namespace
}  // namespace tavrix::test
