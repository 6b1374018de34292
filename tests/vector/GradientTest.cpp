#include <gtest/gtest.h>

#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;
using test::Canvas;

int Red(const Canvas& canvas, int x, int y) {
    return static_cast<int>((canvas.At(x, y) >> 16U) & 0xFFU);
}
int Blue(const Canvas& canvas, int x, int y) {
    return static_cast<int>(canvas.At(x, y) & 0xFFU);
}

constexpr GradientVertex RedAt(double x, double y) {
    return {{x, y}, 65535, 0, 0};
}
constexpr GradientVertex BlueAt(double x, double y) {
    return {{x, y}, 0, 0, 65535};
}

TEST(Gradient, OfABoxGoesFromSideToSide) {
    Canvas canvas(12, 4);
    canvas.painter.GradientBox(RedAt(1, 1), BlueAt(11, 3), false);
    for (int x = 1; x < 11; ++x) {
        EXPECT_NEAR(Red(canvas, x, 1), 255 * (1 - (x - 0.5) / 10), 1) << x;
        EXPECT_NEAR(Blue(canvas, x, 2), 255 * (x - 0.5) / 10, 1) << x;
        EXPECT_EQ(canvas.At(x, 1), canvas.At(x, 2));
    }
    EXPECT_EQ(canvas.At(0, 1), test::Paper);
    EXPECT_EQ(canvas.At(11, 1), test::Paper);
    EXPECT_EQ(canvas.At(5, 0), test::Paper);
    EXPECT_EQ(canvas.At(5, 3), test::Paper);
}

TEST(Gradient, OfABoxGoesDownwards) {
    Canvas canvas(3, 10);
    canvas.painter.GradientBox(RedAt(0, 0), BlueAt(3, 10), true);
    for (int y = 0; y < 10; ++y)
        EXPECT_NEAR(Red(canvas, 1, y), 255 * (1 - (y + 0.5) / 10), 1) << y;
}

TEST(Gradient, CornersOfABoxComeInAnyOrder) {
    Canvas canvas(10, 2), swapped(10, 2);
    canvas.painter.GradientBox(RedAt(10, 2), BlueAt(0, 0), false);
    swapped.painter.GradientBox(BlueAt(0, 0), RedAt(10, 2), false);
    EXPECT_EQ(std::vector<Pixel>(canvas.surface.Pixels().begin(), canvas.surface.Pixels().end()),
              std::vector<Pixel>(swapped.surface.Pixels().begin(), swapped.surface.Pixels().end()));
    EXPECT_GT(Blue(canvas, 0, 0), 230);
}

TEST(Gradient, FollowsAMap) {
    Canvas canvas(10, 10);
    // A quarter counter-clockwise: from left to right becomes from the bottom upwards.
    canvas.painter.GradientBox(RedAt(0, 0), BlueAt(10, 10), false,
                               Affine::Turn(90).Then(Affine::Shift(0, 10)));
    EXPECT_GT(Red(canvas, 5, 9), 230);
    EXPECT_GT(Blue(canvas, 5, 0), 230);
}

TEST(Gradient, OfATriangleMixesItsCorners) {
    Canvas canvas(30, 30);
    canvas.painter.Gradient({{{{0, 0}, 65535, 0, 0}, {{30, 0}, 0, 65535, 0}, {{0, 30}, 0, 0, 65535}}});
    EXPECT_GT(Red(canvas, 0, 0), 240);
    EXPECT_GT(Blue(canvas, 0, 28), 230);
    const Pixel middle = canvas.At(9, 9);
    for (unsigned shift = 0; shift < 24; shift += 8)
        EXPECT_NEAR((middle >> shift) & 0xFFU, 85, 9);
    EXPECT_EQ(canvas.At(25, 25), test::Paper);
}

TEST(Gradient, TrianglesSideBySideLeaveNoSeam) {
    Canvas canvas(20, 20);
    const GradientVertex a{{0, 0}, 65535, 0, 0}, b{{20, 0}, 65535, 0, 0}, c{{20, 20}, 65535, 0, 0},
        d{{0, 20}, 65535, 0, 0};
    canvas.painter.Gradient({a, b, c});
    canvas.painter.Gradient({a, c, d});
    for (const Pixel pixel : canvas.surface.Pixels())
        EXPECT_EQ(pixel, 0xFFFF0000U);
}

TEST(Gradient, EmptyShapesAndWildColoursAreTaken) {
    Canvas canvas(4, 4);
    canvas.painter.GradientBox(RedAt(1, 1), BlueAt(1, 3), false);
    canvas.painter.Gradient({RedAt(0, 0), RedAt(2, 2), RedAt(4, 4)});
    EXPECT_EQ(canvas.Art(), test::Rows(4, "...."));
    canvas.painter.GradientBox({{0, 0}, 1e300, std::nan(""), -5}, {{4, 4}, 1e300, std::nan(""), -5}, true);
    EXPECT_EQ(canvas.At(2, 2), 0xFFFF0000U);
}

}  // namespace
}  // namespace tavrix
