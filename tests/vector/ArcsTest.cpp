#include "imaging/vector/Arcs.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <cmath>

#include "imaging/vector/Widen.h"
#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;

constexpr Box Wide{10, 20, 110, 60};

void ExpectOnEllipse(const Path& path, const Box& box, std::size_t first, std::size_t last) {
    const Path flat = Flattened(path);
    for (std::size_t i = first; i < std::min(last, flat.Points().size()); ++i) {
        const Point d = flat.Points()[i] - box.Centre();
        const double x = d.x / (box.Width() / 2), y = d.y / (box.Height() / 2);
        EXPECT_NEAR(std::hypot(x, y), 1, 0.0003) << i;
    }
}

TEST(Arcs, EllipseTouchesTheSidesOfItsBox) {
    Path path;
    AddEllipse(path, Wide);
    EXPECT_EQ(path.Verbs().size(), 6U);  // move, four curves, close
    ExpectOnEllipse(path, Wide, 0, 1000);
    EXPECT_EQ(Flattened(path).Bounds(), Wide);
}

TEST(Arcs, RunFromRayToRayTheWayTheyAreTold) {
    // From the right to the top: a quarter counter-clockwise, three quarters clockwise.
    ArcShape arc{Wide, {1000, 40}, {60, -500}, ArcDirection::CounterClockwise};
    Path quarter;
    AddArc(quarter, arc);
    EXPECT_EQ(quarter.Verbs().size(), 2U);
    EXPECT_NEAR(quarter.Points()[0].x, 110, 1e-9);
    EXPECT_NEAR(quarter.Current().y, 20, 1e-9);
    ExpectOnEllipse(quarter, Wide, 0, 1000);
    EXPECT_NEAR(Flattened(quarter).Bounds().bottom, 40, 1e-9);

    arc.direction = ArcDirection::Clockwise;
    Path rest;
    AddArc(rest, arc);
    EXPECT_EQ(rest.Verbs().size(), 4U);
    EXPECT_NEAR(Flattened(rest).Bounds().bottom, 60, 0.1);
    EXPECT_NEAR(rest.Current().y, 20, 1e-9);
}

TEST(Arcs, EqualRaysMeanTheWholeEllipse) {
    for (const ArcDirection direction : {ArcDirection::CounterClockwise, ArcDirection::Clockwise}) {
        Path path;
        AddArc(path, {Wide, {60, 0}, {60, 10}, direction});
        EXPECT_EQ(path.Verbs().size(), 5U);
        const Box bounds = Flattened(path).Bounds();
        EXPECT_NEAR(bounds.left, 10, 0.2);
        EXPECT_NEAR(bounds.bottom, 60, 0.2);
    }
}

TEST(Arcs, PieGoesThroughTheCentreAndChordDoesNot) {
    const ArcShape arc{Wide, {110, 40}, {60, 20}};
    Path pie;
    AddPie(pie, arc);
    EXPECT_EQ(pie.Points().back(), (Point{60, 40}));
    EXPECT_EQ(pie.Verbs().back(), Path::Verb::Close);
    Path chord;
    AddChord(chord, arc);
    EXPECT_EQ(chord.Verbs().size(), 3U);
    EXPECT_EQ(chord.Verbs().back(), Path::Verb::Close);
}

TEST(Arcs, ArcToJoinsTheCurrentPoint) {
    Path path;
    path.MoveTo({0, 0});
    ArcTo(path, {Wide, {110, 40}, {60, 20}});
    EXPECT_EQ(path.Verbs()[1], Path::Verb::Line);
    EXPECT_NEAR(path.Points()[1].x, 110, 1e-9);
}

TEST(Arcs, AngleArcCountsCounterClockwiseFromTheRight) {
    Path path;
    path.MoveTo({50, 50});
    AngleArc(path, {50, 50}, 10, 0, 90);
    EXPECT_NEAR(path.Points()[1].x, 60, 1e-9);
    EXPECT_NEAR(path.Current().x, 50, 1e-9);
    EXPECT_NEAR(path.Current().y, 40, 1e-9);

    Path twice;
    AngleArc(twice, {0, 0}, 10, 30, 720);
    EXPECT_EQ(std::ranges::count(twice.Verbs(), Path::Verb::Cubic), 8);
    Path endless;
    AngleArc(endless, {0, 0}, 10, 1e300, -1e300);
    EXPECT_LE(endless.Verbs().size(), 70U);
}

TEST(Arcs, RoundBoxKeepsItsCornersWithinItsSides) {
    Path path;
    AddRoundBox(path, {0, 0, 20, 10}, 100, 100);
    const Box bounds = path.Bounds();
    EXPECT_NEAR(bounds.left, 0, 1e-9);
    EXPECT_NEAR(bounds.right, 20, 1e-9);
    EXPECT_NEAR(bounds.bottom, 10, 1e-9);
    Path box;
    AddRoundBox(box, {0, 0, 20, 10}, 0, 5);
    EXPECT_EQ(std::ranges::count(box.Verbs(), Path::Verb::Cubic), 0);
    Path round;
    AddRoundBox(round, {0, 0, 40, 30}, 10, 20);
    EXPECT_EQ(round.Points()[0], (Point{5, 0}));
    EXPECT_EQ(std::ranges::count(round.Verbs(), Path::Verb::Cubic), 4);
}

TEST(Arcs, TakeEmptyAndWildBoxes) {
    for (const Box& box : {Box{}, Box{5, 5, 5, 90}, Box{std::nan(""), -1e300, 1e300, 1e308}}) {
        Path path;
        AddEllipse(path, box);
        AddPie(path, {box, {std::nan(""), 0}, {1e300, -1e300}});
        AddChord(path, {box, box.Centre(), box.Centre(), ArcDirection::Clockwise});
        AddRoundBox(path, box, 1e300, std::nan(""));
        AngleArc(path, box.Centre(), 1e300, std::nan(""), 1e9);
        for (const Point point : path.Points())
            EXPECT_LE(std::abs(point.x) + std::abs(point.y), 2 * MaxCoordinate);
    }
}

}  // namespace
}  // namespace tavrix
