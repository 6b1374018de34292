#include "ViewerTest.h"

namespace tavrix::test {
namespace {

namespace KeyCode = forms::KeyCode;
namespace ShiftMask = forms::ShiftMask;

/// A picture of 15000 by 13500 twips in a viewport of 9162 by 6177, scrolled to the middle.
class ScrollingTest : public ViewerTest {
  protected:
    static constexpr int MaxX = 15000 - 9162;
    static constexpr int MaxY = 13500 - 6177;
    static constexpr int Small = MainViewFrm::BarSmallChange;

    void StartScrolled(int x, int y) {
        StartWithPicture(1000, 900);
        View().hsbPict.Value = x;
        View().vsbPict.Value = y;
    }
    void ExpectAt(int x, int y) {
        EXPECT_EQ(View().hsbPict.Value.Get(), x);
        EXPECT_EQ(View().vsbPict.Value.Get(), y);
        EXPECT_FLOAT_EQ(View().MainImage.Left, static_cast<float>(-x));
        EXPECT_FLOAT_EQ(View().MainImage.Top, static_cast<float>(-y));
    }
};

TEST_F(ScrollingTest, TheBarsMoveTheImage) {
    StartScrolled(0, 0);
    View().hsbPict.Deliver(forms::ScrollEvent{1000, false});
    View().vsbPict.Deliver(forms::ScrollEvent{2000, false});
    ExpectAt(1000, 2000);
}

TEST_F(ScrollingTest, SoDoesTheThumbWhileItIsDragged) {
    StartScrolled(0, 0);
    View().hsbPict.Deliver(forms::ScrollEvent{1000, true});
    View().vsbPict.Deliver(forms::ScrollEvent{2000, true});
    ExpectAt(1000, 2000);
}

TEST_F(ScrollingTest, TheImageMovesOnTheScreen) {
    StartScrolled(1500, 3000);
    const auto* peer = static_cast<headless::HeadlessCanvasPeer*>(View().MainImage.Peer());
    EXPECT_EQ(peer->bounds, (PixelRect{-100, -200, 1000, 900}));
}

struct KeyCase {
    int key;
    int shift;
    int fromX;
    int fromY;
    int toX;
    int toY;
};

class ScrollKeyTest : public ScrollingTest, public ::testing::WithParamInterface<KeyCase> {};

TEST_P(ScrollKeyTest, Scrolls) {
    const KeyCase& c = GetParam();
    StartScrolled(c.fromX, c.fromY);
    EXPECT_FALSE(Press(c.key, c.shift));
    ExpectAt(c.toX, c.toY);
}

constexpr int MaxX = 5838;
constexpr int MaxY = 7323;
constexpr int AnyShift = ShiftMask::Shift | ShiftMask::Ctrl | ShiftMask::Alt;
constexpr int CtrlShift = ShiftMask::Ctrl | ShiftMask::Shift;

INSTANTIATE_TEST_SUITE_P(
    Keys, ScrollKeyTest,
    ::testing::Values(
        KeyCase{KeyCode::Home, 0, 2000, 2000, 0, 0}, KeyCase{KeyCode::Home, AnyShift, 2000, 2000, 0, 0},
        KeyCase{KeyCode::End, 0, 0, 0, MaxX, MaxY}, KeyCase{KeyCode::End, AnyShift, 0, 0, MaxX, MaxY},
        KeyCase{KeyCode::PageDown, 0, 100, 100, 100, 6277},
        KeyCase{KeyCode::PageDown, AnyShift, 100, 100, 100, 6277},
        KeyCase{KeyCode::PageDown, 0, 100, 2000, 100, MaxY}, KeyCase{KeyCode::PageUp, 0, 100, 7000, 100, 823},
        KeyCase{KeyCode::PageUp, AnyShift, 9, 7000, 9, 823}, KeyCase{KeyCode::PageUp, 0, 100, 2000, 100, 0},
        KeyCase{KeyCode::Down, 0, 1000, 1000, 1000, 1300}, KeyCase{KeyCode::Up, 0, 1000, 1000, 1000, 700},
        KeyCase{KeyCode::Right, 0, 1000, 1000, 1300, 1000}, KeyCase{KeyCode::Left, 0, 1000, 1000, 700, 1000},
        KeyCase{KeyCode::Up, 0, 1000, 100, 1000, 0}, KeyCase{KeyCode::Right, 0, MaxX - 1, 0, MaxX, 0},
        KeyCase{KeyCode::Down, ShiftMask::Ctrl, 0, 100, 0, 6277},
        KeyCase{KeyCode::Up, ShiftMask::Ctrl, 0, 7000, 0, 823},
        KeyCase{KeyCode::Right, ShiftMask::Ctrl, 0, 0, MaxX, 0},
        KeyCase{KeyCode::Left, ShiftMask::Ctrl, 5000, 0, 0, 0},
        KeyCase{KeyCode::Down, CtrlShift, 0, 100, 0, 400}, KeyCase{KeyCode::Up, CtrlShift, 0, 1000, 0, 700},
        KeyCase{KeyCode::Right, CtrlShift, 0, 0, 300, 0}, KeyCase{KeyCode::Left, CtrlShift, 5000, 0, 4700, 0},
        KeyCase{KeyCode::Down, ShiftMask::Shift, 0, 100, 0, 400},
        KeyCase{KeyCode::Down, ShiftMask::Alt | ShiftMask::Shift, 0, 100, 0, 400}));

TEST_F(ScrollingTest, HiddenBarsLetTheKeysDoNothing) {
    StartWithPicture(100, 80);
    for (const int key : {KeyCode::Home, KeyCode::End, KeyCode::PageUp, KeyCode::PageDown, KeyCode::Up,
                          KeyCode::Down, KeyCode::Left, KeyCode::Right}) {
        for (const int shift : {0, ShiftMask::Ctrl}) {
            EXPECT_FALSE(Press(key, shift));
            ExpectAt(0, 0);
        }
    }
}

TEST_F(ScrollingTest, EndMovesTheVisibleBarOnly) {
    StartWithPicture(1000, 80);
    EXPECT_FALSE(Press(KeyCode::End));
    ExpectAt(15000 - 9390, 0);
    EXPECT_FALSE(Press(KeyCode::PageDown));
    EXPECT_FALSE(Press(KeyCode::Down));
    ExpectAt(15000 - 9390, 0);
}

TEST_F(ScrollingTest, AStepIsAFixedSmallChange) {
    StartScrolled(0, 0);
    EXPECT_EQ(View().hsbPict.SmallChange.Get(), Small);
    EXPECT_EQ(View().vsbPict.SmallChange.Get(), Small);
}

}  // namespace
}  // namespace tavrix::test
