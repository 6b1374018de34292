#include "imaging/vector/Path.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <cmath>
#include <limits>

#include "imaging/vector/Flatten.h"
#include "imaging/vector/Widen.h"
#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;
using Verb = Path::Verb;

std::vector<Verb> VerbsOf(const Path& path) {
    return {path.Verbs().begin(), path.Verbs().end()};
}

TEST(Path, LinesWithoutAMoveBeginAtTheOrigin) {
    Path path;
    path.LineTo({3, 4});
    EXPECT_EQ(VerbsOf(path), (std::vector{Verb::Move, Verb::Line}));
    EXPECT_EQ(path.Points()[0], (Point{0, 0}));
}

TEST(Path, OfSeveralMovesTheLastCounts) {
    Path path;
    path.MoveTo({1, 1});
    path.MoveTo({2, 2});
    path.LineTo({3, 3});
    EXPECT_EQ(VerbsOf(path), (std::vector{Verb::Move, Verb::Line}));
    EXPECT_EQ(path.Points()[0], (Point{2, 2}));
}

TEST(Path, AfterCloseALineBeginsAtTheStartOfTheFigure) {
    Path path;
    path.MoveTo({1, 2});
    path.LineTo({5, 2});
    path.Close();
    EXPECT_EQ(path.Current(), (Point{1, 2}));
    path.LineTo({9, 9});
    EXPECT_EQ(VerbsOf(path), (std::vector{Verb::Move, Verb::Line, Verb::Close, Verb::Move, Verb::Line}));
    EXPECT_EQ(path.Points()[2], (Point{1, 2}));
}

TEST(Path, CloseWithoutAFigureIsNothing) {
    Path path;
    path.Close();
    EXPECT_TRUE(path.Empty());
}

TEST(Path, TakesAnyCoordinate) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    Path path;
    path.MoveTo({std::nan(""), Infinity});
    path.LineTo({-Infinity, 1e300});
    EXPECT_EQ(path.Points()[0], (Point{0, MaxCoordinate}));
    EXPECT_EQ(path.Points()[1], (Point{-MaxCoordinate, MaxCoordinate}));
    const Path moved = path.Transformed({1e300, 0, 0, 1e300, Infinity, 0});
    for (const Point point : moved.Points()) {
        EXPECT_LE(std::abs(point.x), MaxCoordinate);
        EXPECT_LE(std::abs(point.y), MaxCoordinate);
    }
}

TEST(Path, HoldsABoundedNumberOfPoints) {
    Path path;
    for (std::size_t i = 0; i < Path::MaxPoints + 10; ++i)
        path.LineTo({double(i % 7), 1});
    EXPECT_LE(path.Points().size(), Path::MaxPoints);
    path.Close();
    Path twice = path;
    twice.Append(path);
    EXPECT_EQ(twice.Points().size(), path.Points().size());
}

TEST(Path, BoundsAreThoseOfAllPoints) {
    Path path;
    EXPECT_EQ(path.Bounds(), Box{});
    path.MoveTo({4, -2});
    path.CubicTo({-3, 7}, {1, 1}, {2, 2});
    EXPECT_EQ(path.Bounds(), (Box{-3, -2, 4, 7}));
}

TEST(Affine, MapsBoxesOntoEachOther) {
    const Affine map = Affine::Between({0, 0, 10, 20}, {100, 50, 80, 90});
    EXPECT_EQ(map.Apply({0, 0}), (Point{100, 50}));
    EXPECT_EQ(map.Apply({10, 20}), (Point{80, 90}));
    EXPECT_TRUE(map.KeepsBoxes());
    EXPECT_TRUE(Affine::Turn(90).KeepsBoxes());
    EXPECT_FALSE(Affine::Turn(45).KeepsBoxes());
}

TEST(Affine, TurnsCounterClockwiseOnTheScreen) {
    const Point up = Affine::Turn(90).Apply({1, 0});
    EXPECT_EQ(up, (Point{0, -1}));
    EXPECT_EQ(Affine::Turn(-90), Affine::Turn(270));
}

TEST(Affine, InverseUndoes) {
    const Affine map{2, 1, -3, 4, 5, 6};
    const auto inverse = map.Inverse();
    ASSERT_TRUE(inverse);
    const Point back = inverse->Apply(map.Apply({7, -8}));
    EXPECT_NEAR(back.x, 7, 1e-9);
    EXPECT_NEAR(back.y, -8, 1e-9);
    EXPECT_FALSE((Affine{1, 2, 2, 4, 0, 0}.Inverse()));
    EXPECT_FALSE((Affine{std::nan(""), 0, 0, 1, 0, 0}.Inverse()));
    EXPECT_FALSE((Affine{1e-200, 0, 0, 1e-200, 1e300, 0}.Inverse()));
}

TEST(Affine, ThenAppliesTheOtherAfterwards) {
    const Affine both = Affine::Scale(2, 3).Then(Affine::Shift(10, 20));
    EXPECT_EQ(both.Apply({1, 1}), (Point{12, 23}));
}

TEST(Flatten, StaysWithinATenthOfAPixelOfTheCurve) {
    Path path;
    const Point a{0, 0}, b{300, -200}, c{-100, 500}, d{250, 250};
    path.MoveTo(a);
    path.CubicTo(b, c, d);
    WorkBudget budget;
    const FlatPath flat = Flatten(path, {-1000, -1000, 1000, 1000}, budget);
    ASSERT_EQ(flat.figures.size(), 1U);
    EXPECT_LT(flat.points.size(), 200U);
    for (int i = 0; i <= 1000; ++i) {
        const double t = i / 1000.0, s = 1 - t;
        const Point p = a * (s * s * s) + b * (3 * s * s * t) + c * (3 * s * t * t) + d * (t * t * t);
        double nearest = 1e9;
        for (std::size_t k = 1; k < flat.points.size(); ++k) {
            const Point from = flat.points[k - 1], along = flat.points[k] - from;
            const double length = along.x * along.x + along.y * along.y;
            const Point off = p - from;
            const double at = std::clamp((off.x * along.x + off.y * along.y) / length, 0.0, 1.0);
            nearest = std::min(nearest, std::hypot(off.x - at * along.x, off.y - at * along.y));
        }
        EXPECT_LE(nearest, FlatteningError + 1e-9) << t;
    }
}

TEST(Flatten, ACurveBesideTheBoundsIsOneLine) {
    Path path;
    path.MoveTo({1000, 0});
    path.CubicTo({2000, -900}, {1500, 900}, {1000, 500});
    WorkBudget budget;
    EXPECT_EQ(Flatten(path, {0, 0, 100, 100}, budget).points.size(), 2U);
}

TEST(Flatten, MovesAloneAreNoFigures) {
    Path path;
    path.MoveTo({1, 1});
    path.LineTo({2, 2});
    path.MoveTo({3, 3});
    WorkBudget budget;
    const FlatPath flat = Flatten(path, {0, 0, 9, 9}, budget);
    EXPECT_EQ(flat.figures.size(), 1U);
    EXPECT_EQ(flat.points.size(), 2U);
}

TEST(Flatten, FlattenedKeepsFiguresAndTheirEnds) {
    Path path = test::BoxOf(0, 0, 4, 4);
    path.MoveTo({10, 10});
    path.CubicTo({20, 10}, {20, 20}, {10, 20});
    const Path flat = Flattened(path);
    EXPECT_EQ(std::ranges::count(flat.Verbs(), Verb::Cubic), 0);
    EXPECT_EQ(std::ranges::count(flat.Verbs(), Verb::Close), 1);
    EXPECT_EQ(flat.Points().back(), (Point{10, 20}));
}

}  // namespace
}  // namespace tavrix
