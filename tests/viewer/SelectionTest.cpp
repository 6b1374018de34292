#include <algorithm>

#include "ViewerTest.h"

namespace tavrix::test {
namespace {

using forms::MouseAction;
namespace MouseButton = forms::MouseButton;
namespace ShiftMask = forms::ShiftMask;

constexpr Pixel Red = OpaquePixel(200, 30, 30);
constexpr Pixel Inverted = OpaquePixel(55, 225, 225);

/// Points are pixels of a picture of 100 by 80.
class SelectionTest : public ViewerTest {
  protected:
    void StartWithImage(int width = 100, int height = 80) { StartWithPicture(width, height); }

    void Press(int x, int y, int shift = ShiftMask::Shift, int button = MouseButton::Left) {
        Mouse(View().MainImage, MouseAction::Down, button, shift, x, y);
    }
    void MoveTo(int x, int y, int button = MouseButton::Left) {
        Mouse(View().MainImage, MouseAction::Move, button, ShiftMask::Shift, x, y);
    }
    void Release(int x, int y, int shift = ShiftMask::Shift, int button = MouseButton::Left) {
        Mouse(View().MainImage, MouseAction::Up, button, shift, x, y);
    }
    void Select(int x1, int y1, int x2, int y2) {
        Press(x1, y1);
        MoveTo((x1 + x2) / 2, (y1 + y2) / 2);
        MoveTo(x2, y2);
        Release(x2, y2);
    }

    /// Every pixel of the picture is as it was, but for the outline with these inclusive corners.
    void ExpectOutline(int left, int top, int right, int bottom) {
        ExpectPixels([=](int x, int y) {
            const bool within = x >= left && x <= right && y >= top && y <= bottom;
            return within && (x == left || x == right || y == top || y == bottom);
        });
    }
    void ExpectNoOutline() {
        ExpectPixels([](int, int) { return false; });
    }

  private:
    template <class Rule>
    void ExpectPixels(Rule inverted) {
        const auto* peer = static_cast<headless::HeadlessCanvasPeer*>(View().MainImage.Peer());
        int wrong = 0;
        for (int y = 0; y < 80; ++y) {
            for (int x = 0; x < 100; ++x) {
                if (peer->ShownPixel(x, y) != (inverted(x, y) ? Inverted : Red)) ++wrong;
            }
        }
        EXPECT_EQ(wrong, 0) << "pixels";
    }
};

struct Drag {
    int x1;
    int y1;
    int x2;
    int y2;
};

class DragDirectionTest : public SelectionTest, public ::testing::WithParamInterface<Drag> {};

TEST_P(DragDirectionTest, DrawsOneInvertedOutline) {
    StartWithImage();
    const auto [x1, y1, x2, y2] = GetParam();
    Select(x1, y1, x2, y2);
    ExpectOutline(std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2));
    EXPECT_TRUE(View().selection.SelectionShown);
    EXPECT_FLOAT_EQ(View().selection.SelectionStartX, static_cast<float>(x1 * 15));
    EXPECT_FLOAT_EQ(View().selection.SelectionStartY, static_cast<float>(y1 * 15));
    EXPECT_FLOAT_EQ(View().selection.SelectionEndX, static_cast<float>(x2 * 15));
    EXPECT_FLOAT_EQ(View().selection.SelectionEndY, static_cast<float>(y2 * 15));
}

INSTANTIATE_TEST_SUITE_P(Directions, DragDirectionTest,
                         ::testing::Values(Drag{10, 20, 60, 50}, Drag{60, 50, 10, 20}, Drag{60, 20, 10, 50},
                                           Drag{10, 50, 60, 20}, Drag{10, 20, 10, 50}, Drag{10, 20, 60, 20}));

TEST_F(SelectionTest, DrawingTheSameRectangleTwiceWipesIt) {
    StartWithImage();
    View().selection.DrawLine(150, 150, 450, 600);
    ExpectOutline(10, 10, 30, 40);
    View().selection.DrawLine(450, 600, 150, 150);
    ExpectNoOutline();
}

TEST_F(SelectionTest, ADragBeyondTheEdgeStopsThere) {
    StartWithImage();
    Press(50, 40);
    MoveTo(500, 400);
    EXPECT_FLOAT_EQ(View().selection.SelectionEndX, 1500);
    EXPECT_FLOAT_EQ(View().selection.SelectionEndY, 1200);
    MoveTo(-20, -30);
    EXPECT_FLOAT_EQ(View().selection.SelectionEndX, 0);
    EXPECT_FLOAT_EQ(View().selection.SelectionEndY, 0);
    Release(-20, -30);
    ExpectOutline(0, 0, 50, 40);
}

TEST_F(SelectionTest, APlainClickWipesIt) {
    StartWithImage();
    Select(10, 10, 40, 40);
    Press(5, 5, ShiftMask::None);
    EXPECT_FALSE(View().selection.SelectionDragging);
    Release(5, 5, ShiftMask::None);
    EXPECT_FALSE(View().selection.SelectionShown);
    ExpectNoOutline();
}

TEST_F(SelectionTest, ARightClickWipesItBeforeTheMenuOpens) {
    StartWithImage();
    Select(10, 10, 40, 40);
    Press(5, 5, ShiftMask::None, MouseButton::Right);
    Release(5, 5, ShiftMask::None, MouseButton::Right);
    EXPECT_EQ(toolkit.Popups().size(), 1U);
    EXPECT_FALSE(View().selection.SelectionShown);
    ExpectNoOutline();
}

TEST_F(SelectionTest, ASecondSelectionTakesTheFirstAway) {
    StartWithImage();
    Select(10, 10, 40, 40);
    Press(50, 50);
    EXPECT_TRUE(View().selection.SelectionShown);
    ExpectNoOutline();
    MoveTo(70, 60);
    Release(70, 60);
    ExpectOutline(50, 50, 70, 60);
}

TEST_F(SelectionTest, APressWithoutAMoveSelectsNothingOfAnySize) {
    StartWithImage();
    Press(10, 10);
    Release(10, 10);
    EXPECT_TRUE(View().selection.SelectionShown);
    ExpectNoOutline();
    Press(20, 20, ShiftMask::None);
    Release(20, 20, ShiftMask::None);
    ExpectNoOutline();
}

struct NoStart {
    int button;
    int shift;
};

class NoSelectionTest : public SelectionTest, public ::testing::WithParamInterface<NoStart> {};

TEST_P(NoSelectionTest, StartsWithAnythingButTheLeftButtonAndShiftAlone) {
    StartWithImage();
    const auto [button, shift] = GetParam();
    Press(10, 10, shift, button);
    EXPECT_FALSE(View().selection.SelectionDragging);
    MoveTo(40, 40, button);
    ExpectNoOutline();
}

INSTANTIATE_TEST_SUITE_P(Cases, NoSelectionTest,
                         ::testing::Values(NoStart{MouseButton::Left, 0}, NoStart{MouseButton::Left, 3},
                                           NoStart{MouseButton::Left, 5}, NoStart{MouseButton::Left, 2},
                                           NoStart{MouseButton::Right, 1}, NoStart{MouseButton::Middle, 1}));

TEST_F(SelectionTest, WithoutAnImageNothingIsSelected) {
    ASSERT_TRUE(Start());
    Press(10, 10);
    EXPECT_FALSE(View().selection.SelectionDragging);
    MoveTo(40, 40);
    Release(40, 40);
    EXPECT_FALSE(View().selection.SelectionShown);
}

TEST_F(SelectionTest, MovesWithoutTheButtonDrawNothing) {
    StartWithImage();
    Select(10, 10, 40, 40);
    EXPECT_TRUE(View().selection.SelectionDragging) << "until the next press";
    MoveTo(60, 60, 0);
    ExpectOutline(10, 10, 40, 40);
}

TEST_F(SelectionTest, MovesWithASecondButtonDrawNothing) {
    StartWithImage();
    Press(10, 10);
    MoveTo(40, 40);
    MoveTo(60, 60, MouseButton::Left | MouseButton::Right);
    ExpectOutline(10, 10, 40, 40);
}

TEST_F(SelectionTest, AnotherButtonEndsTheDragAndTheRectangleStays) {
    StartWithImage();
    Press(10, 10);
    MoveTo(40, 40);
    Press(40, 40, ShiftMask::Shift, MouseButton::Right);
    EXPECT_FALSE(View().selection.SelectionDragging);
    MoveTo(60, 60);
    Release(60, 60);
    EXPECT_FALSE(View().selection.SelectionShown);
    ExpectOutline(10, 10, 40, 40);
}

TEST_F(SelectionTest, ScrollingDropsTheSelection) {
    StartWithImage(1000, 900);
    for (forms::ScrollBar* bar : {&View().hsbPict, &View().vsbPict}) {
        for (const bool tracking : {true, false}) {
            Select(10, 10, 40, 40);
            ExpectOutline(10, 10, 40, 40);
            bar->Deliver(forms::ScrollEvent{bar->Value + 600, tracking});
            EXPECT_FALSE(View().selection.SelectionShown);
            ExpectNoOutline();
        }
    }
}

TEST_F(SelectionTest, ScrollingAnotherPictureDrawsNoOutlineOnIt) {
    StartWithImage(1000, 900);
    PutPicture("C:\\p\\y.jpg", 1000, 900);
    Select(10, 10, 40, 40);
    View().Deliver(forms::DropEvent{{"C:\\p\\y.jpg"}});
    View().vsbPict.Deliver(forms::ScrollEvent{600, false});
    EXPECT_TRUE(View().selection.SelectionShown);
    ExpectNoOutline();
}

TEST_F(SelectionTest, AnEmptySurfaceThatFollowsAnotherHasNoOutline) {
    StartWithImage(1000, 900);
    for (int i = 0; i < 2; ++i) {
        View().MainImage.Picture = Picture();
        const Surface blank = View().MainImage.Image().pixels->Whole().Clone();
        View().selection.DropWhereSeen();
        EXPECT_TRUE(std::ranges::equal(View().MainImage.Image().pixels->Whole().Pixels(), blank.Pixels()));
        Select(10, 10, 40, 40);
    }
}

TEST_F(SelectionTest, ReloadingDropsIt) {
    StartWithImage();
    Select(10, 10, 40, 40);
    Choose(View().menu.mnuReloadImage);
    EXPECT_FALSE(View().selection.SelectionShown);
    ExpectNoOutline();
}

TEST_F(SelectionTest, OpeningLeavesTheMarkOfASelectionButNoOutline) {
    StartWithImage();
    PutPicture("C:\\p\\y.jpg", 100, 80);
    Select(10, 10, 40, 40);
    View().Deliver(forms::DropEvent{{"C:\\p\\y.jpg"}});
    EXPECT_EQ(module.CurrentImage, "C:\\p\\y.jpg");
    EXPECT_TRUE(View().selection.SelectionShown);
    ExpectNoOutline();
}

TEST_F(SelectionTest, TheOutlineIsOnThePixelsOfAFineScreen) {
    toolkit.screen = {2560, 2048, 7.5F, 7.5F, 24};
    StartWithImage();
    Select(11, 13, 41, 43);
    ExpectOutline(11, 13, 41, 43);
}

}  // namespace
}  // namespace tavrix::test
