#include <gtest/gtest.h>

#include <cmath>

#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;
using test::Canvas;

/// Each pixel tells its place: column in the red, row in the green.
Surface Chart(int width, int height) {
    Surface chart(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            chart.Row(y)[static_cast<std::size_t>(x)] =
                (static_cast<Pixel>(x) << 16U) | (static_cast<Pixel>(y) << 8U);
    return chart;
}

Pixel Spot(int x, int y) {
    return OpaquePixel(static_cast<unsigned>(x), static_cast<unsigned>(y), 0);
}

PlacedBitmap Placed(const Surface& bitmap, const Box& part, const Box& to,
                    StretchMode mode = StretchMode::Nearest) {
    return {&bitmap, part, Affine::Between(part, to), mode};
}

TEST(Blit, CopiesPixelForPixel) {
    const Surface chart = Chart(10, 8);
    Canvas canvas(12, 12);
    canvas.painter.Blit(Placed(chart, {2, 3, 7, 6}, {4, 5, 9, 8}));
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x) {
            const bool inside = x >= 4 && x < 9 && y >= 5 && y < 8;
            EXPECT_EQ(canvas.At(x, y), inside ? Spot(x - 2, y - 2) : test::Paper) << x << ' ' << y;
        }
}

TEST(Blit, ExchangedSidesMirror) {
    const Surface chart = Chart(4, 4);
    Canvas across(4, 4), down(4, 4), both(4, 4);
    across.painter.Blit(Placed(chart, {0, 0, 4, 4}, {4, 0, 0, 4}));
    down.painter.Blit(Placed(chart, {0, 4, 4, 0}, {0, 0, 4, 4}));
    both.painter.Blit(Placed(chart, {4, 4, 0, 0}, {0, 0, 4, 4}));
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) {
            EXPECT_EQ(across.At(x, y), Spot(3 - x, y));
            EXPECT_EQ(down.At(x, y), Spot(x, 3 - y));
            EXPECT_EQ(both.At(x, y), Spot(3 - x, 3 - y));
        }
}

TEST(Blit, StretchesByTheCentresOfThePixels) {
    const Surface chart = Chart(7, 5);
    for (const auto& [width, height] : std::vector<std::pair<int, int>>{{21, 10}, {3, 2}, {11, 3}, {1, 1}}) {
        Canvas canvas(24, 12);
        canvas.painter.Blit(Placed(chart, {0, 0, 7, 5}, {1, 1, 1.0 + width, 1.0 + height}));
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                EXPECT_EQ(canvas.At(x + 1, y + 1), Spot(static_cast<int>((x + 0.5) * 7 / width),
                                                        static_cast<int>((y + 0.5) * 5 / height)));
        EXPECT_EQ(canvas.At(width + 1, 1), test::Paper);
        EXPECT_EQ(canvas.At(1, height + 1), test::Paper);
    }
}

TEST(Blit, AveragesWhatFallsOnOnePixel) {
    Surface bitmap(4, 4);
    bitmap.Fill(0xFF000000U);
    bitmap.Row(0)[0] = bitmap.Row(1)[1] = 0xFFFF8040U;
    Canvas canvas(2, 2);
    canvas.painter.Blit(Placed(bitmap, {0, 0, 4, 4}, {0, 0, 2, 2}, StretchMode::Average));
    EXPECT_EQ(canvas.At(0, 0), 0xFF804020U);
    EXPECT_EQ(canvas.At(1, 0), 0xFF000000U);
    // Growing repeats.
    Canvas larger(8, 8);
    larger.painter.Blit(Placed(bitmap, {0, 0, 4, 4}, {0, 0, 8, 8}, StretchMode::Average));
    EXPECT_EQ(larger.At(1, 1), 0xFFFF8040U);
    EXPECT_EQ(larger.At(2, 1), 0xFF000000U);
}

TEST(Blit, AnAverageCountsEachPixelOnce) {
    test::Numbers numbers(31);
    for (int round = 0; round < 30; ++round) {
        Surface bitmap(3 + numbers.Below(60), 1);
        double sum = 0;
        const int shrunk = 1 + numbers.Below(bitmap.Width());
        for (Pixel& pixel : bitmap.Pixels())
            pixel = 0xFF646464U;
        bitmap.Pixels()[static_cast<std::size_t>(numbers.Below(bitmap.Width()))] = 0xFFFFFFFFU;
        Canvas canvas(64, 1);
        canvas.painter.Blit(Placed(bitmap, {0, 0, double(bitmap.Width()), 1}, {0, 0, double(shrunk), 1},
                                   StretchMode::Average));
        int brighter = 0;
        for (int x = 0; x < shrunk; ++x) {
            sum += canvas.At(x, 0) & 0xFFU;
            brighter += (canvas.At(x, 0) & 0xFFU) > 0x64U;
        }
        EXPECT_EQ(brighter, 1) << round;
    }
}

TEST(Blit, TurnsByQuarters) {
    const Surface chart = Chart(6, 4);
    Canvas canvas(10, 10);
    // Counter-clockwise: what was on the right is on top.
    canvas.painter.Blit({&chart, {0, 0, 6, 4}, Affine::Turn(90).Then(Affine::Shift(2, 8))});
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(canvas.At(2 + x, 2 + y), Spot(5 - y, x)) << x << ' ' << y;
    EXPECT_EQ(canvas.At(1, 2), test::Paper);
    EXPECT_EQ(canvas.At(6, 2), test::Paper);
    EXPECT_EQ(canvas.At(2, 1), test::Paper);
    EXPECT_EQ(canvas.At(2, 8), test::Paper);
}

TEST(Blit, FollowsAnyMap) {
    const Surface chart = Chart(20, 20);
    Canvas canvas(60, 60);
    const Affine map = Affine::Scale(1.5, 1.2).Then(Affine::Turn(33)).Then({1, 0, 0.3, 1, 15, 30});
    canvas.painter.Blit({&chart, {0, 0, 20, 20}, map});
    const Affine back = *map.Inverse();
    int inside = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 60; ++x) {
            const Point at = back.Apply({x + 0.5, y + 0.5});
            const bool in = at.x >= 0 && at.y >= 0 && at.x < 20 && at.y < 20;
            inside += in;
            EXPECT_EQ(canvas.At(x, y),
                      in ? Spot(static_cast<int>(at.x), static_cast<int>(at.y)) : test::Paper);
        }
    EXPECT_NEAR(inside, 20 * 20 * 1.5 * 1.2, 30);
}

TEST(Blit, WhatLiesOutsideTheBitmapIsLeftAway) {
    const Surface chart = Chart(4, 4);
    Canvas canvas(10, 10);
    canvas.painter.Blit(Placed(chart, {-2, -2, 6, 6}, {1, 1, 9, 9}));
    EXPECT_EQ(canvas.At(2, 2), test::Paper);
    EXPECT_EQ(canvas.At(3, 3), Spot(0, 0));
    EXPECT_EQ(canvas.At(6, 6), Spot(3, 3));
    EXPECT_EQ(canvas.At(7, 7), test::Paper);
}

TEST(Blit, APlaceIsAPixelWideAtLeastUnlessItIsEmpty) {
    const Surface chart = Chart(4, 4);
    Canvas canvas(4, 4);
    canvas.painter.Blit(Placed(chart, {0, 0, 4, 4}, {1.2, 0, 1.3, 4}));
    EXPECT_NE(canvas.At(1, 0), test::Paper);
    EXPECT_EQ(canvas.At(0, 0), test::Paper);
    EXPECT_EQ(canvas.At(2, 0), test::Paper);
    Canvas empty(4, 4);
    empty.painter.Blit(Placed(chart, {0, 0, 4, 4}, {1, 0, 1, 4}));
    empty.painter.Blit(Placed(chart, {2, 2, 2, 4}, {0, 0, 4, 4}));
    EXPECT_EQ(empty.Art(), test::Rows(4, "...."));
}

TEST(Blit, StaysInsideTheClip) {
    const Surface chart = Chart(6, 6);
    Canvas canvas(6, 6);
    WorkBudget budget;
    canvas.painter.SetClip(Region(PixelRect{1, 1, 4, 4})
                               .Combined(RegionMode::Difference, Region(PixelRect{2, 2, 2, 2}), budget));
    canvas.painter.Blit(Placed(chart, {0, 0, 6, 6}, {0, 0, 6, 6}));
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(canvas.At(x, y), canvas.painter.Clip().Contains(x, y) ? Spot(x, y) : test::Paper);
}

TEST(Blit, AMaskChoosesBetweenTwoOperations) {
    const Surface chart = Chart(4, 1);
    Surface mask(6, 2);
    mask.Row(1)[2] = 0x00FFFFFFU;
    mask.Row(1)[4] = 0x00000001U;
    Canvas canvas(4, 1);
    canvas.painter.Blit(Placed(chart, {0, 0, 4, 1}, {0, 0, 4, 1}), SourceCopy, {},
                        {&mask, 1, 1, DestinationInvert});
    EXPECT_EQ(canvas.At(0, 0), test::BlackInk);
    EXPECT_EQ(canvas.At(1, 0), Spot(1, 0));
    EXPECT_EQ(canvas.At(2, 0), test::BlackInk);
    EXPECT_EQ(canvas.At(3, 0), Spot(3, 0));
}

TEST(Blit, AlphaMixesEvenly) {
    Surface bitmap(1, 1);
    bitmap.Row(0)[0] = 0x00C86400U;
    const PlacedBitmap placed = Placed(bitmap, {0, 0, 1, 1}, {0, 0, 1, 1});
    for (const unsigned alpha : {0U, 1U, 64U, 128U, 254U, 255U}) {
        Canvas canvas(1, 1);
        canvas.surface.Fill(0xFF0A64F0U);
        canvas.painter.AlphaBlit(placed, alpha, false);
        const auto channel = [&](unsigned source, unsigned below) {
            return (source * alpha + below * (255 - alpha)) / 255.0;
        };
        EXPECT_NEAR((canvas.At(0, 0) >> 16U) & 0xFFU, channel(0xC8, 0x0A), 0.51);
        EXPECT_NEAR((canvas.At(0, 0) >> 8U) & 0xFFU, channel(0x64, 0x64), 0.51);
        EXPECT_NEAR(canvas.At(0, 0) & 0xFFU, channel(0x00, 0xF0), 0.51);
        EXPECT_EQ(canvas.At(0, 0) >> 24U, 0xFFU);
    }
}

TEST(Blit, AlphaOfPixelsIsMultipliedAlready) {
    Surface bitmap(3, 1);
    bitmap.Row(0)[0] = 0x80400000U;
    bitmap.Row(0)[1] = 0x00000000U;
    bitmap.Row(0)[2] = 0xFF112233U;
    Canvas canvas(3, 1);
    canvas.painter.AlphaBlit(Placed(bitmap, {0, 0, 3, 1}, {0, 0, 3, 1}), 255, true);
    EXPECT_EQ(canvas.At(0, 0), 0xFFBF7F7FU);
    EXPECT_EQ(canvas.At(1, 0), test::Paper);
    EXPECT_EQ(canvas.At(2, 0), 0xFF112233U);
    // Half as much of everything.
    Canvas half(3, 1);
    half.painter.AlphaBlit(Placed(bitmap, {0, 0, 3, 1}, {0, 0, 3, 1}), 128, true);
    EXPECT_NEAR(half.At(0, 0) & 0xFFU, 255 - 0x40, 1);
    EXPECT_NEAR(half.At(2, 0) & 0xFFU, (255 + 0x33) / 2, 1);
    // Colours beyond their alpha do not wrap round.
    bitmap.Row(0)[0] = 0x01FFFFFFU;
    canvas.painter.AlphaBlit(Placed(bitmap, {0, 0, 1, 1}, {0, 0, 1, 1}), 255, true);
    EXPECT_EQ(canvas.At(0, 0), 0xFFFFFFFFU);
}

TEST(Blit, OneColourIsTransparent) {
    Surface bitmap(2, 1);
    bitmap.Row(0)[0] = 0x00FF00FFU;
    bitmap.Row(0)[1] = 0xFFFF00FEU;
    Canvas canvas(2, 1);
    canvas.painter.TransparentBlit(Placed(bitmap, {0, 0, 2, 1}, {0, 0, 2, 1}), 0xFFFF00FFU);
    EXPECT_EQ(canvas.At(0, 0), test::Paper);
    EXPECT_EQ(canvas.At(1, 0), 0xFFFF00FEU);
}

TEST(Blit, NoBitmapDrawsNothing) {
    Canvas canvas(2, 2);
    const Surface empty;
    canvas.painter.Blit({nullptr, {0, 0, 2, 2}, {}});
    canvas.painter.Blit({&empty, {0, 0, 2, 2}, {}});
    canvas.painter.AlphaBlit({nullptr, {0, 0, 2, 2}, {}}, 255, true);
    canvas.painter.TransparentBlit({&empty, {0, 0, 2, 2}, {}}, 0);
    EXPECT_EQ(canvas.Art(), test::Rows(2, ".."));
    EXPECT_FALSE(canvas.painter.Failed());
}

TEST(Blit, PatternsFollowAMap) {
    Canvas canvas(20, 20);
    canvas.painter.PatternBlit({0, 0, 10, 10}, Affine::Turn(30).Then(Affine::Shift(3, 9)), test::BlackBrush,
                               DestinationInvert);
    int ink = 0;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x)
            ink += canvas.InkAt(x, y) == 255;
    EXPECT_NEAR(ink, 100, 6);
    EXPECT_EQ(canvas.InkAt(10, 10), 255);
    EXPECT_EQ(canvas.InkAt(4, 4), 0);
    Canvas upright(4, 4);
    upright.painter.PatternBlit({0, 0, 2, 1}, Affine::Turn(90).Then(Affine::Shift(1, 3)), test::BlackBrush);
    EXPECT_EQ(upright.Art(), (test::Rows{"....", ".#..", ".#..", "...."}));
}

}  // namespace
}  // namespace tavrix
