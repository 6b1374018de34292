#include <gtest/gtest.h>

#include <algorithm>

#include "imaging/vector/Dashes.h"
#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;
using test::Canvas;
using test::PolylineOf;
using test::Rows;

Pen Dashed(std::vector<double> dashes, double width = 0) {
    Pen pen;
    pen.dashes = std::move(dashes);
    pen.width = width;
    pen.cap = LineCap::Flat;
    return pen;
}

std::string LineWith(const Pen& pen, double length = 28) {
    Canvas canvas(30, 1);
    canvas.painter.Stroke(PolylineOf({{1, 0}, {1 + length, 0}}), pen);
    return canvas.Art()[0];
}

TEST(Dashes, OfFineLinesAreWholePixels) {
    EXPECT_EQ(LineWith(Dashed({3, 3})), ".###...###...###...###...###..");
    EXPECT_EQ(LineWith(Dashed(DashesOf(DashStyle::Dot, 0))), LineWith(Dashed({3, 3})));
    EXPECT_EQ(LineWith(Dashed(DashesOf(DashStyle::Dash, 0))), ".##################......#####");
    EXPECT_EQ(LineWith(Dashed(DashesOf(DashStyle::DashDot, 0))), ".#########......###......#####");
    EXPECT_EQ(LineWith(Dashed(DashesOf(DashStyle::DashDotDot, 0))), ".#########...###...###...#####");
    EXPECT_TRUE(DashesOf(DashStyle::Solid, 0).empty());
}

TEST(Dashes, OfWideLinesGoByTheWidth) {
    EXPECT_EQ(DashesOf(DashStyle::Dash, 2), (std::vector<double>{6, 2}));
    EXPECT_EQ(DashesOf(DashStyle::Dot, 2), (std::vector<double>{2, 2}));
    EXPECT_EQ(DashesOf(DashStyle::DashDot, 2), (std::vector<double>{6, 2, 2, 2}));
    EXPECT_EQ(DashesOf(DashStyle::DashDotDot, 2), (std::vector<double>{6, 2, 2, 2, 2, 2}));
    // Round caps give back what is missing here.
    EXPECT_EQ(DashesOf(DashStyle::DashDot, 2, LineCap::Round), (std::vector<double>{4, 4, 0, 4}));

    Canvas canvas(20, 4);
    canvas.painter.Stroke(PolylineOf({{1, 2}, {19, 2}}), Dashed({6, 2}, 2));
    EXPECT_EQ(canvas.Art(), (Rows{"....................",  //
                                  ".######..######..##.",  //
                                  ".######..######..##.",  //
                                  "...................."}));
}

TEST(Dashes, GoRoundCorners) {
    Canvas canvas(6, 7);
    canvas.painter.Stroke(PolylineOf({{0, 1}, {4, 1}, {4, 6}}), Dashed({3, 2}));
    // From the border of the first pixel it is 4.5 to the middle of the corner.
    EXPECT_EQ(canvas.Art(), (Rows{"......",  //
                                  "###...",  //
                                  "....#.",  //
                                  "....#.",  //
                                  "....#.",  //
                                  "......",  //
                                  "......"}));
}

TEST(Dashes, OfAnOddNumberAreTakenTwice) {
    EXPECT_EQ(LineWith(Dashed({4})), ".####....####....####....####.");
    EXPECT_EQ(LineWith(Dashed({1, 2, 3}), 11), ".#..###.##....................");
}

TEST(Dashes, GapsMayHaveAColour) {
    Canvas canvas(8, 1);
    Pen pen = Dashed({2, 2});
    pen.gaps = 0xFFFF0000U;
    canvas.painter.Stroke(PolylineOf({{0, 0}, {7, 0}}), pen);
    EXPECT_EQ(canvas.At(1, 0), test::BlackInk);
    EXPECT_EQ(canvas.At(2, 0), 0xFFFF0000U);
    EXPECT_EQ(canvas.At(3, 0), 0xFFFF0000U);
    EXPECT_EQ(canvas.At(4, 0), test::BlackInk);
}

TEST(Dashes, OnClosedFinePathsEndBetweenPixels) {
    Canvas canvas(12, 12);
    Path box = test::BoxOf(1, 1, 10, 10);
    canvas.painter.Stroke(box, Dashed({2, 2}));
    for (int x = 2; x < 10; ++x)
        EXPECT_TRUE(canvas.InkAt(x, 1) == 0 || canvas.InkAt(x, 1) == 255) << x;
    for (int y = 2; y < 10; ++y)
        EXPECT_TRUE(canvas.InkAt(10, y) == 0 || canvas.InkAt(10, y) == 255) << y;
}

TEST(Dashes, ThatMakeNoSenseAreSolid) {
    const std::string solid = "." + std::string(29, '#');
    EXPECT_EQ(LineWith(Dashed({0, 0})), solid);
    EXPECT_EQ(LineWith(Dashed({-3, -5})), solid);
    EXPECT_EQ(LineWith(Dashed({std::nan(""), 0})), solid);
    EXPECT_EQ(LineWith(Dashed({1e-9, 1e-9})), solid);
}

TEST(Dashes, FarAwayCostNothingAndKeepTheirStep) {
    // The pattern runs on over a billion pixels outside.
    Canvas canvas(12, 1);
    const std::int64_t before = canvas.budget.Left();
    canvas.painter.Stroke(PolylineOf({{-1e9, 0}, {1e9, 0}}), Dashed({3, 3}));
    EXPECT_LT(before - canvas.budget.Left(), 100'000);
    std::string row = canvas.Art()[0];
    for (std::size_t i = 0; i + 6 < row.size(); ++i)
        EXPECT_EQ(row[i], row[i + 6]) << row;
    EXPECT_EQ(std::ranges::count(row, '#'), 6) << row;
}

TEST(Dashes, AreCutWhereTheySayInFigures) {
    WorkBudget budget;
    FlatPath path;
    path.points = {{0, 0}, {10, 0}};
    path.figures = {{0, 2, false}};
    const FlatPath cut = CutIntoDashes(path, {4, 1}, 0, {-99, -99, 99, 99}, budget);
    EXPECT_EQ(cut.points, (std::vector<Point>{{0, 0}, {4, 0}, {5, 0}, {9, 0}}));
    EXPECT_EQ(cut.figures.size(), 2U);
    path.figures = {{0, 2, true}};
    const FlatPath closed = CutIntoDashes(path, {4, 1}, 1, {-99, -99, 99, 99}, budget);
    EXPECT_EQ(closed.points[1], (Point{3, 0}));
}

}  // namespace
}  // namespace tavrix
