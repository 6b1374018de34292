#include <gtest/gtest.h>

#include <cmath>

#include "imaging/vector/Arcs.h"
#include "imaging/vector/Widen.h"
#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;
using test::Canvas;
using test::PolygonOf;
using test::PolylineOf;
using test::Rows;

Pen Wide(double width, LineCap cap = LineCap::Flat, LineJoin join = LineJoin::Miter) {
    Pen pen;
    pen.width = width;
    pen.cap = cap;
    pen.join = join;
    return pen;
}

double InkIn(const Canvas& canvas) {
    double sum = 0;
    for (int y = 0; y < canvas.surface.Height(); ++y)
        for (int x = 0; x < canvas.surface.Width(); ++x)
            sum += canvas.InkAt(x, y) / 255.0;
    return sum;
}

TEST(Stroke, FineLinesAlongTheAxesAreOnePixelWideAndReachTheirEnds) {
    Canvas canvas(7, 5);
    canvas.painter.Stroke(PolylineOf({{1, 1}, {5, 1}}), Pen{});
    canvas.painter.Stroke(PolylineOf({{3, 4}, {3, 2}}), Pen{});
    EXPECT_EQ(canvas.Art(), (Rows{".......",  //
                                  ".#####.",  //
                                  "...#...",  //
                                  "...#...",  //
                                  "...#..."}));
}

TEST(Stroke, FineLinesAreCrispBetweenPixelsToo) {
    Canvas canvas(7, 3);
    canvas.painter.Stroke(PolylineOf({{0.7, 1.4}, {5.2, 1.4}}), Pen{});
    EXPECT_EQ(canvas.Art(), (Rows{".......", ".#####.", "......."}));
}

TEST(Stroke, AFineBoxHasAllItsCorners) {
    Canvas canvas(6, 5);
    canvas.painter.Stroke(PolygonOf({{1, 1}, {4, 1}, {4, 3}, {1, 3}}), Pen{});
    EXPECT_EQ(canvas.Art(), (Rows{"......",  //
                                  ".####.",  //
                                  ".#..#.",  //
                                  ".####.",  //
                                  "......"}));
    // Closed by a line of its own instead.
    Canvas polyline(6, 5);
    polyline.painter.Stroke(PolylineOf({{1, 1}, {4, 1}, {4, 3}, {1, 3}, {1, 1}}), Pen{});
    EXPECT_EQ(polyline.Art(), canvas.Art());
}

TEST(Stroke, AFineLineOfNoLengthIsAPixel) {
    Canvas canvas(3, 3);
    canvas.painter.Stroke(PolylineOf({{1, 1}, {1, 1}}), Pen{});
    EXPECT_EQ(canvas.Art(), (Rows{"...", ".#.", "..."}));
}

TEST(Stroke, AMoveAloneDrawsNothing) {
    Canvas canvas(3, 3);
    Path path;
    path.MoveTo({1, 1});
    canvas.painter.Stroke(path, Pen{});
    EXPECT_EQ(canvas.Art(), Rows(3, "..."));
}

TEST(Stroke, WideLinesAlongTheAxesAreCrispWhetherOddOrEven) {
    Canvas odd(8, 5);
    odd.painter.Stroke(PolylineOf({{2, 2}, {6, 2}}), Wide(3));
    EXPECT_EQ(odd.Art(), (Rows{"........",  //
                               "..####..",  //
                               "..####..",  //
                               "..####..",  //
                               "........"}));
    Canvas even(8, 5);
    even.painter.Stroke(PolylineOf({{2, 2}, {6, 2}}), Wide(2));
    EXPECT_EQ(even.Art(), (Rows{"........",  //
                                "..####..",  //
                                "..####..",  //
                                "........",  //
                                "........"}));
}

TEST(Stroke, SquareCapsReachHalfTheWidthFurther) {
    Canvas canvas(9, 5);
    canvas.painter.Stroke(PolylineOf({{2, 2}, {6, 2}}), Wide(3, LineCap::Square));
    EXPECT_EQ(canvas.Art(), (Rows{".........",  //
                                  ".#######.",  //
                                  ".#######.",  //
                                  ".#######.",  //
                                  "........."}));
}

TEST(Stroke, RoundCapsAreHalfDiscs) {
    Canvas flat(60, 40), round(60, 40);
    flat.painter.Stroke(PolylineOf({{20, 20}, {40, 20}}), Wide(15));
    round.painter.Stroke(PolylineOf({{20, 20}, {40, 20}}), Wide(15, LineCap::Round));
    EXPECT_NEAR(InkIn(flat), 20 * 15, 0.01);
    EXPECT_NEAR(InkIn(round) - InkIn(flat), 3.14159 * 7.5 * 7.5, 2);
}

TEST(Stroke, JoinsAreAsLongAsTheyShouldBe) {
    // Two lines at a right angle, 10 wide, which meet at (50.5, 20.5) with the point upwards.
    const Path path = PolylineOf({{20, 50}, {50, 20}, {80, 50}});
    const auto topOf = [&](LineJoin join, double limit) {
        Canvas canvas(100, 60);
        Pen pen = Wide(10, LineCap::Flat, join);
        pen.miterLimit = limit;
        canvas.painter.Stroke(path, pen);
        double ink = 0;
        for (int y = 0; y < 20; ++y)
            ink += canvas.InkAt(50, y) / 255.0 + canvas.InkAt(49, y) / 255.0;
        return ink / 2;
    };
    // Above y = 20: the width's half times the root of 2, half the width, and half of the root of a half. Measured
    // over two columns beside the point.
    EXPECT_NEAR(topOf(LineJoin::Miter, 10), 7.07 - 0.5, 0.3);
    EXPECT_NEAR(topOf(LineJoin::Round, 10), 5, 0.3);
    EXPECT_NEAR(topOf(LineJoin::Bevel, 10), 3.54, 0.3);
    // The miter is 1.414 times as long as the line is wide.
    EXPECT_NEAR(topOf(LineJoin::Miter, 1.42), topOf(LineJoin::Miter, 10), 1e-9);
    EXPECT_NEAR(topOf(LineJoin::Miter, 1.41), topOf(LineJoin::Bevel, 10), 1e-9);
}

TEST(Stroke, AClosedFigureHasNoCapsAndJoinsAtItsStart) {
    Canvas canvas(12, 12);
    canvas.painter.Stroke(PolygonOf({{2, 2}, {9, 2}, {9, 9}, {2, 9}}), Wide(3));
    EXPECT_EQ(canvas.Art(), (Rows{"............",  //
                                  ".##########.",  //
                                  ".##########.",  //
                                  ".##########.",  //
                                  ".###....###.",  //
                                  ".###....###.",  //
                                  ".###....###.",  //
                                  ".###....###.",  //
                                  ".##########.",  //
                                  ".##########.",  //
                                  ".##########.",  //
                                  "............"}));
}

TEST(Stroke, APenUnderAMapIsWiderAlongOneAxis) {
    // Three times as wide across vertical lines as across horizontal ones.
    Canvas canvas(30, 30);
    canvas.painter.Stroke(PolylineOf({{15, 5}, {15, 25}}), Wide(3), Affine::Scale(3, 1));
    EXPECT_NEAR(InkIn(canvas), 9 * 20, 0.1);
    Canvas across(30, 30);
    across.painter.Stroke(PolylineOf({{5, 15}, {25, 15}}), Wide(3), Affine::Scale(3, 1));
    EXPECT_NEAR(InkIn(across), 3 * 20, 0.1);
}

TEST(Stroke, WidthsAreScaledAndRounded) {
    for (const auto& [width, pixels] :
         std::vector<std::pair<double, int>>{{10, 1}, {14, 1}, {16, 2}, {24, 2}, {26, 3}}) {
        Canvas canvas(20, 9);
        canvas.painter.Stroke(PolylineOf({{5, 4}, {15, 4}}), Wide(width), Affine::Scale(-0.1, 0.1));
        double column = 0;
        for (int y = 0; y < 9; ++y)
            column += canvas.InkAt(10, y) / 255.0;
        EXPECT_EQ(column, pixels) << width;
    }
}

TEST(Stroke, AMapWithoutAnInverseGivesTheFinestLine) {
    Canvas canvas(7, 3);
    canvas.painter.Stroke(PolylineOf({{1, 1}, {5, 1}}), Wide(5), Affine{0, 0, 0, 0, 0, 0});
    EXPECT_EQ(canvas.Art(), (Rows{".......", ".#####.", "......."}));
}

TEST(Stroke, CurvesAreAsWideAsTheirPenEverywhere) {
    Canvas canvas(120, 120);
    Path circle;
    AddEllipse(circle, {10, 10, 110, 110});
    canvas.painter.Stroke(circle, Wide(8, LineCap::Round, LineJoin::Round));
    EXPECT_NEAR(InkIn(canvas), 2 * 3.14159265 * 50 * 8, 8);
    // No bumps where the pieces of the curve meet: nothing is farther out than half the width.
    for (int y = 0; y < 120; ++y)
        for (int x = 0; x < 120; ++x) {
            const double distance = std::hypot(x + 0.5 - 60, y + 0.5 - 60);
            if (std::abs(distance - 50) > 4.9) {
                EXPECT_EQ(canvas.InkAt(x, y), 0) << x << ' ' << y;
            }
            if (std::abs(distance - 50) < 3.1) {
                EXPECT_GE(canvas.InkAt(x, y), 250) << x << ' ' << y;
            }
        }
}

TEST(Stroke, ALineThatCrossesItselfInvertsEachPixelOnce) {
    Canvas canvas(20, 20);
    Pen pen = Wide(3);
    pen.brush = Brush::Solid(0xFFFFFFFFU);
    canvas.painter.Stroke(PolylineOf({{2, 10}, {18, 10}, {18, 3}, {10, 3}, {10, 18}}), pen, {},
                          BinaryOperation::XorPen);
    EXPECT_EQ(canvas.InkAt(10, 10), 255);
    EXPECT_EQ(canvas.InkAt(5, 10), 255);
    EXPECT_EQ(canvas.InkAt(10, 15), 255);
}

TEST(Stroke, InsideFramePensStayInTheirBox) {
    EXPECT_EQ(InsideFrame({10, 10, 30, 20}, 4), (Box{12, 12, 28, 18}));
    EXPECT_EQ(InsideFrame({30, 20, 10, 10}, 100), (Box{20, 15, 20, 15}));
    EXPECT_EQ(InsideFrame({0, 0, 4, 4}, -3), (Box{0, 0, 4, 4}));
}

TEST(Stroke, WidenGivesTheOutlineThatIsDrawn) {
    WorkBudget budget;
    const Path outline =
        Widen(PolylineOf({{10, 10}, {30, 10}}), Wide(4, LineCap::Square), {}, {0, 0, 99, 99}, budget);
    EXPECT_EQ(outline.Bounds(), (Box{8, 8, 32, 12}));
    const Path ring = Widen(test::BoxOf(10, 10, 30, 30), Wide(4), {}, {0, 0, 99, 99}, budget);
    Canvas canvas(40, 40);
    canvas.painter.Fill(ring, FillRule::NonZero, test::BlackBrush);
    EXPECT_EQ(InkIn(canvas), 24 * 24 - 16 * 16);
}

TEST(Stroke, AHairpinTurnsRound) {
    for (const LineJoin join : {LineJoin::Round, LineJoin::Bevel, LineJoin::Miter}) {
        Canvas canvas(60, 20);
        canvas.painter.Stroke(PolylineOf({{10, 10}, {40, 10}, {20, 10}}), Wide(5, LineCap::Flat, join));
        const double expected = 30 * 5 + (join == LineJoin::Round ? 3.14159 * 2.5 * 2.5 / 2 : 0);
        // Where both ways end in the middle of a pixel, their halves count side by side.
        EXPECT_NEAR(InkIn(canvas), expected, 5.1) << static_cast<int>(join);
    }
}

TEST(Stroke, NoPenDrawsNothing) {
    Canvas canvas(5, 5);
    canvas.painter.Stroke(PolylineOf({{0, 0}, {5, 5}}), Pen::None());
    EXPECT_EQ(canvas.Art(), Rows(5, "....."));
}

}  // namespace
}  // namespace tavrix
