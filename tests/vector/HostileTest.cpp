// Numbers that no honest file holds: nothing may break, hang or take memory without a bound.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "imaging/vector/Arcs.h"
#include "imaging/vector/Widen.h"
#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;
using test::Canvas;

constexpr double Infinity = std::numeric_limits<double>::infinity();

double Wild(test::Numbers& numbers) {
    switch (numbers.Below(10)) {
        case 0:
            return std::nan("");
        case 1:
            return Infinity;
        case 2:
            return -Infinity;
        case 3:
            return 1e300;
        case 4:
            return -1e300;
        case 5:
            return 1e-300;
        case 6:
            return numbers.Between(-1e10, 1e10);
        case 7:
            return 0;
        default:
            return numbers.Between(-50, 50);
    }
}

Point WildPoint(test::Numbers& numbers) {
    return {Wild(numbers), Wild(numbers)};
}

Affine WildMap(test::Numbers& numbers) {
    return {Wild(numbers), Wild(numbers), Wild(numbers), Wild(numbers), Wild(numbers), Wild(numbers)};
}

Path WildPath(test::Numbers& numbers) {
    Path path;
    for (int i = 0; i < 12; ++i) {
        switch (numbers.Below(6)) {
            case 0:
                path.MoveTo(WildPoint(numbers));
                break;
            case 1:
                path.CubicTo(WildPoint(numbers), WildPoint(numbers), WildPoint(numbers));
                break;
            case 2:
                path.Close();
                break;
            case 3:
                AngleArc(path, WildPoint(numbers), Wild(numbers), Wild(numbers), Wild(numbers));
                break;
            default:
                path.LineTo(WildPoint(numbers));
        }
    }
    return path;
}

TEST(Hostile, AnyNumbersGoIntoAnyOperation) {
    test::Numbers numbers(99);
    Surface bitmap(5, 4);
    for (int round = 0; round < 500; ++round) {
        Canvas canvas(24, 17);
        canvas.budget = WorkBudget(3'000'000);
        Painter& painter = canvas.painter;
        const auto operation = static_cast<BinaryOperation>(1 + numbers.Below(16));
        const auto rule = numbers.Below(2) == 0 ? FillRule::EvenOdd : FillRule::NonZero;
        Pen pen;
        pen.width = Wild(numbers);
        pen.cap = static_cast<LineCap>(numbers.Below(3));
        pen.join = static_cast<LineJoin>(numbers.Below(3));
        pen.miterLimit = Wild(numbers);
        for (int i = numbers.Below(5); i > 0; --i)
            pen.dashes.push_back(Wild(numbers));
        const Path path = WildPath(numbers);
        painter.FillAndStroke(path, rule, test::BlackBrush, pen, WildMap(numbers), operation);
        painter.SetClip(Region::Of(WildPath(numbers), rule, painter.Bounds(), canvas.budget));
        painter.Stroke(path.Transformed(WildMap(numbers)), pen, {}, operation);
        painter.ClearClip();
        const Box part{Wild(numbers), Wild(numbers), Wild(numbers), Wild(numbers)};
        const PlacedBitmap placed{&bitmap, part, WildMap(numbers),
                                  static_cast<StretchMode>(numbers.Below(2))};
        painter.Blit(placed, static_cast<TernaryOperation>(numbers.Below(256)), test::BlackBrush);
        painter.Blit({&bitmap, part,
                      Affine::Between(part, {Wild(numbers), Wild(numbers), Wild(numbers), Wild(numbers)}),
                      placed.mode});
        painter.AlphaBlit(placed, 77, true);
        painter.PatternBlit(part, WildMap(numbers), test::BlackBrush, 0x5A);
        painter.GradientBox({WildPoint(numbers), Wild(numbers), 1, 2}, {WildPoint(numbers), 3, 4, 5}, false,
                            WildMap(numbers));
        painter.Gradient({{{WildPoint(numbers), 1, 2, 3},
                           {WildPoint(numbers), Wild(numbers), 2, 3},
                           {WildPoint(numbers), 1, 2, 3}}});
        EXPECT_FALSE(painter.Failed());
    }
}

TEST(Hostile, AMillionPointsAreDrawn) {
    test::Numbers numbers(5);
    Path path;
    for (int i = 0; i < 1'000'000; ++i)
        path.LineTo({i % 180 + numbers.Between(0, 20), i / 6000 + numbers.Between(0, 20)});
    Canvas canvas(200, 200);
    canvas.painter.Fill(path, FillRule::EvenOdd, test::BlackBrush);
    Path round;
    for (int i = 0; i < 200'000; ++i)
        round.LineTo({100 + 90 * std::cos(i * 0.001), 100 + 90 * std::sin(i * 0.001)});
    Pen pen;
    pen.width = 5;
    canvas.painter.Stroke(round, pen);
    EXPECT_FALSE(canvas.painter.Failed());
    EXPECT_EQ(canvas.InkAt(190, 100), 255);
}

TEST(Hostile, TheBudgetEndsWhatWouldTakeForEver) {
    Path path;
    for (int i = 0; i < 1'000'000; ++i)
        path.LineTo({double(i % 2 == 0 ? -1000 : 5000), double(i % 3 == 0 ? -5000 : 9000)});
    Canvas canvas(3000, 3000);
    canvas.budget = WorkBudget(200'000'000);
    for (int i = 0; i < 100; ++i) {
        canvas.painter.Fill(path, FillRule::NonZero, test::BlackBrush);
        Pen pen;
        pen.width = 900;
        pen.dashes = {0.6, 0};
        canvas.painter.Stroke(path, pen);
    }
    EXPECT_TRUE(canvas.budget.Exhausted());
    // Nothing more is drawn.
    canvas.surface.Fill(test::Paper);
    canvas.painter.PatternBlit({0, 0, 9, 9}, test::BlackBrush);
    canvas.painter.SetPixel(1, 1, test::BlackInk);
    EXPECT_EQ(canvas.At(1, 1), test::Paper);
}

TEST(Hostile, HugeFiguresAreCutToTheSurface) {
    Canvas canvas(50, 50);
    Path circle;
    AddEllipse(circle, {-1e9, 25, 1e9, 2e9});
    canvas.painter.Fill(circle, FillRule::EvenOdd, test::BlackBrush);
    EXPECT_EQ(canvas.InkAt(25, 10), 0);
    EXPECT_EQ(canvas.InkAt(25, 40), 255);
    Pen pen;
    pen.width = 1e9;
    canvas.surface.Fill(test::Paper);
    canvas.painter.Stroke(test::PolylineOf({{-1e9, -1e9}, {1e9, 1e9}}), pen);
    EXPECT_EQ(canvas.Art(), test::Rows(50, std::string(50, '#')));
}

TEST(Hostile, AnEmptySurfaceIsDrawnOn) {
    Surface surface;
    WorkBudget budget;
    Painter painter(surface, budget);
    painter.Fill(test::BoxOf(0, 0, 9, 9), FillRule::EvenOdd, test::BlackBrush);
    painter.Stroke(test::BoxOf(0, 0, 9, 9), Pen{});
    painter.PatternBlit({0, 0, 9, 9}, test::BlackBrush);
    painter.FloodFillUpTo(0, 0, 0, test::BlackBrush);
    painter.SetPixel(0, 0, 0);
    EXPECT_FALSE(painter.Failed());
}

TEST(Hostile, WideningIsBounded) {
    test::Numbers numbers(6);
    for (int round = 0; round < 300; ++round) {
        Pen pen;
        pen.width = Wild(numbers);
        pen.dashes = {Wild(numbers), Wild(numbers)};
        WorkBudget budget(50'000'000);
        const Path wide = Widen(WildPath(numbers), pen, WildMap(numbers), {0, 0, 100, 100}, budget);
        EXPECT_LE(wide.Points().size(), Path::MaxPoints);
    }
}

}  // namespace
}  // namespace tavrix
