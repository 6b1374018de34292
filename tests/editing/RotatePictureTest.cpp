#include "editing/turning/RotatePicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <stdexcept>
#include <string>
#include <vector>

#include "ReferenceRotation.h"
#include "TestSurface.h"
#include "support/ErrorOfCall.h"

namespace tavrix {
namespace {

constexpr auto Quarter = static_cast<float>(3.14159265359 / 2);
constexpr float Half = 3.1415927F;
constexpr std::array Turns{Quarter, -Quarter, Half, -Half};

constexpr Pixel Untouched = 0xFE123456U;

struct Size {
    int width = 0;
    int height = 0;
};

/// The whole grid takes minutes; TAVRIX_FULL_GRID=1 asks for it.
bool FullGrid() {
    return std::getenv("TAVRIX_FULL_GRID") != nullptr;
}

float Degrees(int degrees) {
    return static_cast<float>(3.14159265359 / 180 * degrees);
}

RotateGeometry Centres(const Surface& source, const Surface& dest) {
    return {source.Width() / 2, source.Height() / 2, dest.Width() / 2, dest.Height() / 2};
}

void Nothing(int /*row*/) {}

Surface Rotated(const Surface& source, Size size, float angle) {
    Surface dest = Background(size.width, size.height);
    RotatePicture(source, dest, angle, Centres(source, dest), Nothing);
    return dest;
}

Surface Expected(const Surface& source, Size size, float angle) {
    Surface dest = Background(size.width, size.height);
    ReferenceRotation(source, dest, angle, Centres(source, dest), Nothing);
    return dest;
}

void ExpectAsDefined(const Surface& source, Size size, float angle) {
    EXPECT_TRUE(SamePixels(Rotated(source, size, angle), Expected(source, size, angle)))
        << source.Width() << "x" << source.Height() << " into " << size.width << "x" << size.height << " by "
        << angle;
}

TEST(RotatePicture, IsAsDefinedForEachAngleOfSmallPictures) {
    const int step = FullGrid() ? 1 : 11;
    int next = 0;
    for (int width = 3; width <= 70; width += step) {
        for (int height = 3; height <= 70; height += step) {
            const Surface source = Different(width, height);
            // Thinned: each size gets a share of the angles, another one each time.
            for (int degrees = -180 + (FullGrid() ? 0 : next++ % 5); degrees <= 180;
                 degrees += FullGrid() ? 1 : 5)
                ExpectAsDefined(source, {width, height}, Degrees(degrees));
        }
    }
}

TEST(RotatePicture, IsAsDefinedForQuarterTurnsOfEachSmallSize) {
    for (int width = 1; width <= 70; ++width) {
        for (int height = 1; height <= 70; height += FullGrid() ? 1 : 3) {
            const Surface source = Different(width, height);
            ExpectAsDefined(source, {height, width}, Quarter);
            ExpectAsDefined(source, {height, width}, -Quarter);
            ExpectAsDefined(source, {width, height}, Half);
        }
    }
}

TEST(RotatePicture, IsAsDefinedIntoLargerAndSmallerSurfaces) {
    const std::array<Size, 6> sizes{{{90, 91}, {20, 75}, {64, 3}, {1, 40}, {33, 33}, {150, 10}}};
    for (const Size from : {Size{41, 63}, Size{64, 20}, Size{7, 7}}) {
        const Surface source = Different(from.width, from.height);
        for (const Size to : sizes) {
            for (const float angle : Turns)
                ExpectAsDefined(source, to, angle);
            for (int degrees = -180; degrees <= 180; degrees += 7)
                ExpectAsDefined(source, to, Degrees(degrees));
        }
    }
}

TEST(RotatePicture, IsAsDefinedForLargePictures) {
    for (const Size from : {Size{1500, 1501}, Size{4001, 37}, Size{2048, 1024}}) {
        const Surface source = Different(from.width, from.height);
        ExpectAsDefined(source, {from.height, from.width}, Quarter);
        ExpectAsDefined(source, from, Degrees(33));
        if (!FullGrid()) continue;
        ExpectAsDefined(source, {from.height, from.width}, -Quarter);
        ExpectAsDefined(source, from, Half);
        for (int degrees = -175; degrees <= 180; degrees += 20)
            ExpectAsDefined(source, {from.width + 300, from.height + 300}, Degrees(degrees));
    }
}

/// The quarter turns go by blocks of 512, by strips of 16, by pieces of 4, and by several threads: each direction, with
/// sides that are off by all remainders, and rows that are a power of two long.
TEST(RotatePicture, IsAsDefinedForQuarterTurnsOfAllRemainders) {
    for (const Size from :
         {Size{1601, 1602}, Size{1603, 1600}, Size{2048, 1025}, Size{513, 529}, Size{515, 1026}}) {
        const Surface source = Different(from.width, from.height);
        const Size turned{from.height, from.width};
        for (const float angle : {Quarter, -Quarter, Half}) {
            const Size size = angle == Half ? from : turned;
            const Surface dest = Rotated(source, size, angle);
            const int sign = angle < 0 ? -1 : 1;
            const int limit = std::max(size.width / 2, size.height / 2) - 1;
            for (int y = 0; y < size.height; ++y) {
                for (int x = 0; x < size.width; ++x) {
                    const int right = x - size.width / 2;
                    const int down = y - size.height / 2;
                    const int fromX = from.width / 2 + (angle == Half ? -right : -sign * down);
                    const int fromY = from.height / 2 + (angle == Half ? -down : sign * right);
                    const bool drawn = std::abs(right) <= limit && std::abs(down) <= limit && fromX >= 0 &&
                                       fromX < from.width && fromY >= 0 && fromY < from.height;
                    ASSERT_EQ(PixelAt(dest, x, y), drawn ? PixelAt(source, fromX, fromY) : Untouched)
                        << from.width << "x" << from.height << " by " << angle << " at " << x << " " << y;
                }
            }
        }
    }
}

/// On narrow pictures the loop is long all the same, so that large radii are cheap to test.
TEST(RotatePicture, IsAsDefinedAtLargeRadii) {
    const Surface source = Different(6001, 5);
    ExpectAsDefined(source, {6001, 5}, Half);
    ExpectAsDefined(source, {6001, 5}, Degrees(1));
    if (!FullGrid()) return;
    ExpectAsDefined(source, {5, 6001}, Quarter);
    const Surface longer = Different(22003, 3);
    ExpectAsDefined(longer, {22003, 3}, Half);
    ExpectAsDefined(longer, {3, 22003}, -Quarter);
    const Surface beyond = Different(22005, 3);
    ExpectAsDefined(beyond, {22005, 3}, Half);
}

/// All points of the largest loop that is copied, and of what lies a little beyond it: the polar rotation comes to the
/// exact point. The points that rounding could move are those whose radius is nearly a half number.
TEST(RotatePicture, QuarterTurnsAreExactUpToTheLastRowThatIsCopied) {
    constexpr int LastRow = 11000;
    const int step = FullGrid() ? 1 : 97;
    std::int64_t looked = 0;
    for (int o = 0; o <= LastRow; o += step) {
        for (int i = 0; i <= LastRow; ++i) {
            const double r = std::sqrt(static_cast<double>(o) * o + static_cast<double>(i) * i);
            const double part = std::abs(r - std::round(r));
            if (part < 0.499) continue;
            ++looked;
            const auto theta =
                static_cast<float>(o == 0 ? 3.14159265359 / 2 : std::atan(static_cast<double>(i) / o));
            const int radius = ToInteger16(r);
            const auto at = [&](float angle) {
                const double sum = static_cast<double>(theta) + static_cast<double>(angle);
                return std::array{RoundToLong(radius * std::cos(sum)), RoundToLong(radius * std::sin(sum))};
            };
            ASSERT_EQ(at(Quarter), (std::array{-i, o})) << o << " " << i;
            ASSERT_EQ(at(-Quarter), (std::array{i, -o})) << o << " " << i;
            ASSERT_EQ(at(Half), (std::array{-o, -i})) << o << " " << i;
            ASSERT_EQ(at(-Half), (std::array{-o, -i})) << o << " " << i;
        }
    }
    EXPECT_GT(looked, 1000);
}

TEST(RotatePicture, HalfATurnLeavesTheFirstColumnAndRowAndReflectsTheRest) {
    const Surface source = Different(20, 20);
    const Surface dest = Rotated(source, {20, 20}, Half);
    for (int at = 0; at < 20; ++at) {
        EXPECT_EQ(PixelAt(dest, at, 0), Untouched);
        EXPECT_EQ(PixelAt(dest, 0, at), Untouched);
    }
    for (int y = 1; y < 20; ++y) {
        for (int x = 1; x < 20; ++x)
            ASSERT_EQ(PixelAt(dest, x, y), PixelAt(source, 20 - x, 20 - y)) << x << " " << y;
    }
}

TEST(RotatePicture, HalfATurnOfAnEvenPictureThatIsNotSquareDoesTheSame) {
    const Surface source = Different(40, 26);
    const Surface dest = Rotated(source, {40, 26}, Half);
    for (int y = 0; y < 26; ++y) {
        for (int x = 0; x < 40; ++x) {
            const auto expected = x == 0 || y == 0 ? Untouched : PixelAt(source, 40 - x, 26 - y);
            ASSERT_EQ(PixelAt(dest, x, y), expected) << x << " " << y;
        }
    }
}

TEST(RotatePicture, OnOddSidesTheLastColumnAndRowStayToo) {
    const Surface dest = Rotated(Different(21, 21), {21, 21}, Half);
    for (int at = 0; at < 21; ++at) {
        EXPECT_EQ(PixelAt(dest, at, 0), Untouched);
        EXPECT_EQ(PixelAt(dest, 0, at), Untouched);
        EXPECT_EQ(PixelAt(dest, at, 20), Untouched);
        EXPECT_EQ(PixelAt(dest, 20, at), Untouched);
    }
    EXPECT_NE(PixelAt(dest, 1, 1), Untouched);
    EXPECT_NE(PixelAt(dest, 19, 19), Untouched);
}

TEST(RotatePicture, AQuarterClockwiseMovesWhatIsRightOfTheCentreBelowIt) {
    const Surface source = Different(100, 50);
    const Surface dest = Rotated(source, {50, 100}, -Quarter);
    EXPECT_EQ(PixelAt(dest, 25, 50 + 30), PixelAt(source, 50 + 30, 25));
    EXPECT_EQ(PixelAt(dest, 25 - 7, 50), PixelAt(source, 50, 25 + 7));
}

TEST(RotatePicture, AQuarterCounterClockwiseMovesWhatIsRightOfTheCentreAboveIt) {
    const Surface source = Different(100, 50);
    const Surface dest = Rotated(source, {50, 100}, Quarter);
    EXPECT_EQ(PixelAt(dest, 25, 50 - 30), PixelAt(source, 50 + 30, 25));
}

TEST(RotatePicture, CornersWithoutASourceKeepTheBackground) {
    const Surface dest = Rotated(Different(40, 40), {60, 60}, Degrees(45));
    EXPECT_EQ(PixelAt(dest, 3, 3), Untouched);
    EXPECT_EQ(PixelAt(dest, 56, 3), Untouched);
    EXPECT_NE(PixelAt(dest, 30, 30), Untouched);
}

TEST(RotatePicture, TellsEachRowOnceAndDrawsFromTheCentreOutward) {
    const Surface source = Different(421, 300);
    for (const float angle : {Degrees(33), Degrees(-120)}) {
        const Surface whole = Expected(source, {300, 400}, angle);
        Surface dest = Background(300, 400);
        std::vector<int> told;
        RotatePicture(source, dest, angle, Centres(source, dest), [&](int row) {
            told.push_back(row);
            if (row == 0) {  // a place that is not drawn with the first rows
                ASSERT_EQ(PixelAt(dest, 200, 200 + 140), Untouched);
            }
            if (row % 9 != 0 && row != 199) return;
            for (int y = -row; y <= row; ++y) {
                for (int x = -row; x <= row; ++x)
                    ASSERT_EQ(PixelAt(dest, 150 + x, 200 + y), PixelAt(whole, 150 + x, 200 + y))
                        << angle << " " << row;
            }
        });
        EXPECT_NE(PixelAt(dest, 200, 200 + 140), Untouched);
        std::vector<int> rows(200);
        std::iota(rows.begin(), rows.end(), 0);
        EXPECT_EQ(told, rows);
    }
}

TEST(RotatePicture, ATurnByQuartersTellsNoRow) {
    const Surface source = Different(421, 300);
    for (const float angle : {Quarter, -Quarter, Half}) {
        Surface dest = Background(300, 400);
        RotatePicture(source, dest, angle, Centres(source, dest), [](int row) { FAIL() << row; });
        EXPECT_TRUE(SamePixels(dest, Expected(source, {300, 400}, angle))) << angle;
    }
}

TEST(RotatePicture, WhatTheCallerThrowsPassesThrough) {
    const Surface source = Different(40, 40);
    Surface dest = Background(40, 40);
    const auto rotate = [&](float angle) {
        RotatePicture(source, dest, angle, Centres(source, dest), [](int row) {
            if (row == 3) throw std::logic_error("stop");
        });
    };
    EXPECT_THROW(rotate(0.5F), std::logic_error);
}

TEST(RotatePicture, ASurfaceOfOnePixelHasNoRows) {
    const Surface dest = Rotated(Different(30, 30), {1, 1}, Half);
    EXPECT_EQ(PixelAt(dest, 0, 0), Untouched);
}

TEST(RotatePicture, AnEmptySourceDrawsNothing) {
    for (const float angle : {Quarter, 0.5F})
        EXPECT_TRUE(SamePixels(Rotated(Surface(), {30, 20}, angle), Background(30, 20)));
}

TEST(RotatePicture, AHalfSizeBeyond16BitsOverflows) {
    const Surface source = Different(10, 10);
    Surface dest = Background(20, 20);
    EXPECT_EQ(ErrorOfCall([&] { RotatePicture(source, dest, Half, {5, 5, 32769, 10}, Nothing); }), 6);
    EXPECT_EQ(ErrorOfCall([&] { RotatePicture(source, dest, Half, {5, 5, 10, 40000}, Nothing); }), 6);
    EXPECT_TRUE(SamePixels(dest, Background(20, 20)));
}

/// With a half-size of 32760 the first row that overflows is not far from the axis.
TEST(RotatePicture, ARadiusBeyond16BitsEndsItWithTheRowsSoFar) {
    const Surface source = Different(65520, 9);
    for (const float angle : {Half, Degrees(1)}) {
        const RotateGeometry geometry{32760, 4, 32760, 4};
        int rows = 0;
        int expectedRows = 0;
        Surface expected = Background(65520, 9);
        EXPECT_EQ(ErrorOfCall([&] {
                      ReferenceRotation(source, expected, angle, geometry, [&](int) { ++expectedRows; });
                  }),
                  6);
        Surface dest = Background(65520, 9);
        EXPECT_EQ(ErrorOfCall([&] { RotatePicture(source, dest, angle, geometry, [&](int) { ++rows; }); }),
                  6);
        EXPECT_EQ(rows, expectedRows);
        EXPECT_GT(rows, 500);
        EXPECT_LT(rows, 1000);
        EXPECT_TRUE(SamePixels(dest, expected)) << angle;
    }
}

/// The row that overflows is drawn up to the point where it does.
TEST(RotatePicture, TheRowThatOverflowsIsDrawnUpToThatPoint) {
    const Surface source = Different(1500, 1500);
    // A window far from the centre: the places of the arm to the right around the rows that overflow.
    const RotateGeometry geometry{750, 750, -10, 32760};
    Surface expected = Background(1400, 65520 / 40);
    Surface dest = Background(1400, 65520 / 40);
    EXPECT_EQ(ErrorOfCall([&] { ReferenceRotation(source, expected, 0.3F, geometry, Nothing); }), 6);
    EXPECT_EQ(ErrorOfCall([&] { RotatePicture(source, dest, 0.3F, geometry, Nothing); }), 6);
    EXPECT_TRUE(SamePixels(dest, expected));
}

TEST(RotateGeometry, HalvesRoundedTwipsAndCutsTheRest) {
    const forms::ScreenInfo screen;
    const RotateGeometry odd = CentresOf(51 * 15, 50 * 15, 1 * 15, 3 * 15, screen);
    EXPECT_EQ(odd.sourceCentreX, 25);
    EXPECT_EQ(odd.sourceCentreY, 25);
    EXPECT_EQ(odd.destCentreX, 0);
    EXPECT_EQ(odd.destCentreY, 1);
    // 3211.98 twips are 3212, 1606 after the division by 2, and 107 pixels.
    EXPECT_EQ(CentresOf(3211.98F, 0, 0, 0, screen).sourceCentreX, 107);
    // 2999.5 goes to 3000, 3000.5 too.
    EXPECT_EQ(CentresOf(2999.5F, 3000.5F, 0, 0, screen).sourceCentreX, 100);
    EXPECT_EQ(CentresOf(2999.5F, 3000.5F, 0, 0, screen).sourceCentreY, 100);
    EXPECT_EQ(CentresOf(2999.4F, 0, 0, 0, screen).sourceCentreX, 99);
}

TEST(RotateGeometry, TakesEachDirectionsOwnTwipsPerPixel) {
    forms::ScreenInfo screen;
    screen.twipsPerPixelX = 12;
    screen.twipsPerPixelY = 20;
    const RotateGeometry centres = CentresOf(1200, 1200, 240, 240, screen);
    EXPECT_EQ(centres.sourceCentreX, 50);
    EXPECT_EQ(centres.sourceCentreY, 30);
    EXPECT_EQ(centres.destCentreX, 10);
    EXPECT_EQ(centres.destCentreY, 6);
}

TEST(RotateGeometry, SizesBeyond32BitsOverflow) {
    EXPECT_EQ(ErrorOfCall([] { (void)CentresOf(3e9F, 15, 15, 15, {}); }), 6);
}

}  // namespace
}  // namespace tavrix
