#include <gtest/gtest.h>

#include "imaging/vector/Arcs.h"
#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;
using test::BlackBrush;
using test::BoxOf;
using test::Canvas;
using test::PolygonOf;
using test::Rows;

TEST(Fill, ABoxCoversItsPixelsAndNoOthers) {
    Canvas canvas(6, 5);
    canvas.painter.Fill(BoxOf(1, 1, 4, 3), FillRule::EvenOdd, BlackBrush);
    EXPECT_EQ(canvas.Art(), (Rows{"......",  //
                                  ".###..",  //
                                  ".###..",  //
                                  "......",  //
                                  "......"}));
}

TEST(Fill, BoxesAreCrispWhereverTheyLie) {
    Canvas canvas(6, 5);
    canvas.painter.Fill(BoxOf(0.6, 1.3, 4.4, 3.4), FillRule::EvenOdd, BlackBrush);
    EXPECT_EQ(canvas.Art(), (Rows{"......",  //
                                  ".###..",  //
                                  ".###..",  //
                                  "......",  //
                                  "......"}));
}

TEST(Fill, SlantedBordersAreAntialiasedByArea) {
    Canvas canvas(3, 3);
    canvas.painter.Fill(PolygonOf({{0, 0}, {3, 3}, {0, 3}}), FillRule::EvenOdd, BlackBrush);
    EXPECT_EQ(canvas.Art(), (Rows{"+..",  //
                                  "#+.",  //
                                  "##+"}));
    EXPECT_NEAR(canvas.InkAt(1, 1), 128, 1);

    // The line from (0, 0) to (4, 1) cuts an eighth, three eighths, ... off its pixels.
    Canvas flat(4, 1);
    flat.painter.Fill(PolygonOf({{0, 0}, {4, 1}, {0, 1}}), FillRule::EvenOdd, BlackBrush);
    for (int x = 0; x < 4; ++x)
        EXPECT_NEAR(flat.InkAt(x, 0), 255.0 * (7 - 2 * x) / 8, 1) << x;
}

TEST(Fill, RulesDifferWhereAFigureCrossesItself) {
    // Two boxes run in the same direction, the one inside the other.
    Path path = PolygonOf({{0, 0}, {5, 0}, {5, 5}, {0, 5}});
    path.Append(PolygonOf({{1, 1}, {4, 1}, {4, 4}, {1, 4}}));
    Canvas evenOdd(5, 5);
    evenOdd.painter.Fill(path, FillRule::EvenOdd, BlackBrush);
    EXPECT_EQ(evenOdd.Art(), (Rows{"#####",  //
                                   "#...#",  //
                                   "#...#",  //
                                   "#...#",  //
                                   "#####"}));
    Canvas nonZero(5, 5);
    nonZero.painter.Fill(path, FillRule::NonZero, BlackBrush);
    EXPECT_EQ(nonZero.Art(), Rows(5, "#####"));

    // In opposite directions there is a hole by both rules.
    Path ring = PolygonOf({{0, 0}, {5, 0}, {5, 5}, {0, 5}});
    ring.Append(PolygonOf({{1, 1}, {1, 4}, {4, 4}, {4, 1}}));
    Canvas opposite(5, 5);
    opposite.painter.Fill(ring, FillRule::NonZero, BlackBrush);
    EXPECT_EQ(opposite.Art(), evenOdd.Art());
}

TEST(Fill, OpenFiguresCountAsClosed) {
    Canvas canvas(4, 4);
    canvas.painter.Fill(test::PolylineOf({{1, 1}, {3, 1}, {3, 3}, {1, 3}}), FillRule::EvenOdd, BlackBrush);
    EXPECT_EQ(canvas.Art(), (Rows{"....",  //
                                  ".##.",  //
                                  ".##.",  //
                                  "...."}));
}

TEST(Fill, WithoutAntialiasingCentresDecide) {
    Canvas canvas(4, 4);
    canvas.painter.SetAntialias(false);
    // The border runs through the centres of the pixels (0, 0), (1, 1), ...: they belong to what is right of it.
    canvas.painter.Fill(PolygonOf({{0, 0}, {4, 0}, {4, 4}}), FillRule::EvenOdd, BlackBrush);
    EXPECT_EQ(canvas.Art(), (Rows{"####",  //
                                  ".###",  //
                                  "..##",  //
                                  "...#"}));
    Canvas rest(4, 4);
    rest.painter.SetAntialias(false);
    rest.painter.Fill(PolygonOf({{0, 0}, {4, 4}, {0, 4}}), FillRule::EvenOdd, BlackBrush);
    EXPECT_EQ(rest.Art(), (Rows{"....",  //
                                "#...",  //
                                "##..",  //
                                "###."}));
}

TEST(Fill, PolygonsThatShareABorderInvertEachPixelOnce) {
    test::Numbers numbers(7);
    for (int round = 0; round < 50; ++round) {
        Canvas canvas(20, 20);
        const Point centre{numbers.Between(3, 17), numbers.Between(3, 17)};
        const std::vector<Point> corners{{0, 0}, {20, 0}, {20, 20}, {0, 20}};
        for (std::size_t i = 0; i < 4; ++i)
            canvas.painter.Fill(PolygonOf({corners[i], corners[(i + 1) % 4], centre}), FillRule::EvenOdd,
                                BlackBrush, BinaryOperation::Not);
        EXPECT_EQ(canvas.Art(), Rows(20, std::string(20, '#')));
    }
}

TEST(Fill, CopyingOperationsAreAntialiasedAndOthersAreNot) {
    const Path triangle = PolygonOf({{0, 0}, {3, 3}, {0, 3}});
    for (std::uint32_t number = 1; number <= 16; ++number) {
        const BinaryOperation operation = ToBinaryOperation(number);
        Canvas canvas(3, 3);
        canvas.surface.Fill(0xFF808080U);
        canvas.painter.Fill(triangle, FillRule::EvenOdd, Brush::Solid(0xFF204060U), operation);
        const bool opaque = operation == BinaryOperation::Black || operation == BinaryOperation::White ||
                            operation == BinaryOperation::CopyPen || operation == BinaryOperation::NotCopyPen;
        const Pixel full = Combine(ToTernary(operation), 0xFF204060U, 0, 0xFF808080U);
        EXPECT_EQ(canvas.At(0, 2), full) << number;
        EXPECT_EQ(canvas.At(2, 0), 0xFF808080U) << number;
        const Pixel border = canvas.At(1, 1);
        if (opaque)
            EXPECT_TRUE(border != full && border != 0xFF808080U) << number;
        else
            EXPECT_TRUE(border == full || border == 0xFF808080U) << number;
    }
}

TEST(Fill, LeavesOpaquePixels) {
    Canvas canvas(3, 3);
    canvas.surface.Fill(0);
    canvas.painter.Fill(PolygonOf({{0, 0}, {3, 3}, {0, 3}}), FillRule::EvenOdd, Brush::Solid(0x00FF0000U));
    EXPECT_EQ(canvas.At(0, 2), 0xFFFF0000U);
    EXPECT_EQ(canvas.At(1, 1) >> 24U, 0xFFU);
    EXPECT_EQ(canvas.At(2, 0), 0U);
}

TEST(Fill, ShapesAreCutAtTheBorders) {
    Canvas canvas(4, 3);
    canvas.painter.Fill(BoxOf(-100, -50, 2, 2), FillRule::NonZero, BlackBrush);
    EXPECT_EQ(canvas.Art(), (Rows{"##..", "##..", "...."}));
    canvas.painter.Fill(BoxOf(3, 1, 1000, 2000), FillRule::NonZero, BlackBrush);
    EXPECT_EQ(canvas.Art(), (Rows{"##..", "##.#", "...#"}));
    Canvas inside(4, 3);
    inside.painter.Fill(PolygonOf({{-1000, 1}, {1, -1000}, {1000, 1}, {1, 1000}}), FillRule::EvenOdd,
                        BlackBrush);
    EXPECT_EQ(inside.Art(), Rows(3, "####"));
}

TEST(Fill, StaysInsideTheClip) {
    Canvas canvas(5, 4);
    WorkBudget budget;
    canvas.painter.SetClip(Region(PixelRect{1, 1, 3, 3})
                               .Combined(RegionMode::Difference, Region(PixelRect{2, 2, 1, 1}), budget));
    canvas.painter.Fill(BoxOf(0, 0, 4, 3), FillRule::EvenOdd, BlackBrush);
    EXPECT_EQ(canvas.Art(), (Rows{".....",  //
                                  ".###.",  //
                                  ".#.#.",  //
                                  "....."}));
    canvas.painter.ClearClip();
    EXPECT_EQ(canvas.painter.Clip(), Region(PixelRect{0, 0, 5, 4}));
}

TEST(Fill, ASolidPenLeavesNoGapToTheFilling) {
    // Red in the middle, black around, and no white in between.
    Canvas canvas(40, 40);
    Path ellipse;
    AddEllipse(ellipse, {5, 5, 34, 34});
    canvas.painter.FillAndStroke(ellipse, FillRule::EvenOdd, Brush::Solid(0xFFFF0000U), Pen{});
    for (int y = 0; y < 40; ++y) {
        bool reached = false;
        for (int x = 0; x < 20; ++x) {
            const Pixel pixel = canvas.At(x, y);
            if (pixel == 0xFFFF0000U) reached = true;
            // Once the colour inside is reached, it goes on; before it, whiteness only falls.
            if (reached) {
                EXPECT_GE((pixel >> 16U) & 0xFFU, pixel & 0xFFU);
            }
            // Blue and green come from the paper alone, red from both: between the line and the red there is no paper.
            if (x > 0 && !reached && (canvas.At(x - 1, y) & 0xFFU) < 100) {
                EXPECT_LT(pixel & 0xFFU, 140U) << x << ' ' << y;
            }
        }
    }
}

TEST(Fill, ACirclesAreaIsRight) {
    Canvas canvas(64, 64);
    Path circle;
    AddEllipse(circle, {2, 2, 62, 62});
    canvas.painter.Fill(circle, FillRule::NonZero, BlackBrush);
    double ink = 0;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            ink += canvas.InkAt(x, y) / 255.0;
    EXPECT_NEAR(ink, 3.14159265 * 900, 3);
}

}  // namespace
}  // namespace tavrix
