#include "editing/resizing/StretchCopy.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "TestSurface.h"
#include "imaging/graphics/StretchCopy.h"
#include "support/ErrorOfCall.h"

namespace tavrix {
namespace {

constexpr Pixel Untouched = 0xFE123456U;

/// A row of opaque pixels whose blue is the number.
Surface RowOf(int count) {
    Surface surface(count, 1);
    for (int x = 0; x < count; ++x)
        surface.Row(0)[static_cast<std::size_t>(x)] = OpaquePixel(0, 0, static_cast<unsigned>(x));
    return surface;
}

Surface Transposed(const Surface& surface) {
    Surface other(surface.Height(), surface.Width());
    for (int y = 0; y < surface.Height(); ++y) {
        for (int x = 0; x < surface.Width(); ++x)
            other.Row(x)[static_cast<std::size_t>(y)] = surface.Row(y)[static_cast<std::size_t>(x)];
    }
    return other;
}

/// The numbers of a copied row, -1 where nothing was copied. Checks that a column fares alike.
std::vector<int> Copied(int width, int to, int toSize, int sourceWidth, int from, int fromSize) {
    Surface dest = Background(width, 1);
    const Surface source = RowOf(sourceWidth);
    StretchCopy(dest, {to, 0, toSize, 1}, source, {from, 0, fromSize, 1});

    Surface column = Background(1, width);
    StretchCopy(column, {0, to, 1, toSize}, Transposed(source), {0, from, 1, fromSize});
    EXPECT_TRUE(SamePixels(Transposed(column), dest));

    std::vector<int> numbers;
    for (const Pixel pixel : dest.Pixels())
        numbers.push_back(pixel == Untouched ? -1 : static_cast<int>(pixel & 0xFFU));
    return numbers;
}

using Numbers = std::vector<int>;

TEST(StretchCopy, EqualSizesAreCopied) {
    EXPECT_EQ(Copied(5, 0, 5, 5, 0, 5), (Numbers{0, 1, 2, 3, 4}));
    EXPECT_EQ(Copied(5, 1, 3, 9, 4, 3), (Numbers{-1, 4, 5, 6, -1}));
}

TEST(StretchCopy, ShrinkingDropsPixels) {
    EXPECT_EQ(Copied(4, 0, 4, 8, 0, 8), (Numbers{0, 2, 4, 6}));
    EXPECT_EQ(Copied(3, 0, 3, 4, 0, 4), (Numbers{0, 1, 2}));
    EXPECT_EQ(Copied(6, 0, 6, 8, 0, 8), (Numbers{0, 1, 2, 4, 5, 6}));
}

TEST(StretchCopy, GrowingRepeatsPixels) {
    EXPECT_EQ(Copied(6, 0, 6, 3, 0, 3), (Numbers{0, 0, 1, 1, 2, 2}));
    EXPECT_EQ(Copied(5, 0, 5, 4, 0, 4), (Numbers{0, 0, 1, 2, 3}));
    EXPECT_EQ(Copied(6, 0, 6, 4, 0, 4), (Numbers{0, 0, 1, 2, 2, 3}));
    EXPECT_EQ(Copied(3, 0, 3, 9, 8, 1), (Numbers{8, 8, 8}));
}

TEST(StretchCopy, NegativeSizesMirror) {
    EXPECT_EQ(Copied(5, 5, -5, 5, 0, 5), (Numbers{4, 3, 2, 1, 0}));
    EXPECT_EQ(Copied(6, 4, -3, 5, 1, 3), (Numbers{-1, 3, 2, 1, -1, -1}));
    EXPECT_EQ(Copied(6, 6, -6, 3, 0, 3), (Numbers{2, 2, 1, 1, 0, 0}));
    EXPECT_EQ(Copied(4, 4, -4, 8, 0, 8), (Numbers{6, 4, 2, 0}));
}

TEST(StretchCopy, IsClippedAtTheDestination) {
    EXPECT_EQ(Copied(3, -2, 5, 5, 0, 5), (Numbers{2, 3, 4}));
    EXPECT_EQ(Copied(3, 1, 5, 5, 0, 5), (Numbers{-1, 0, 1}));
    EXPECT_EQ(Copied(3, -2, 10, 5, 0, 5), (Numbers{1, 1, 2}));
    EXPECT_EQ(Copied(3, 4, -5, 5, 0, 5), (Numbers{3, 2, 1}));
    EXPECT_EQ(Copied(3, 3, 5, 5, 0, 5), (Numbers{-1, -1, -1}));
    EXPECT_EQ(Copied(3, -5, 5, 5, 0, 5), (Numbers{-1, -1, -1}));
}

TEST(StretchCopy, LeavesAwayWhatComesFromOutsideTheSource) {
    EXPECT_EQ(Copied(5, 0, 5, 3, -1, 5), (Numbers{-1, 0, 1, 2, -1}));
    EXPECT_EQ(Copied(6, 0, 6, 2, 0, 3), (Numbers{0, 0, 1, 1, -1, -1}));
    EXPECT_EQ(Copied(4, 4, -4, 2, 0, 4), (Numbers{-1, -1, 1, 0}));
    EXPECT_EQ(Copied(2, 0, 2, 2, 7, 2), (Numbers{-1, -1}));
}

TEST(StretchCopy, SidesOfNothingCopyNothing) {
    EXPECT_EQ(Copied(2, 0, 0, 2, 0, 2), (Numbers{-1, -1}));
    EXPECT_EQ(Copied(2, 0, 2, 2, 0, 0), (Numbers{-1, -1}));
    EXPECT_EQ(Copied(2, 0, 2, 2, 1, -1), (Numbers{-1, -1}));
    Surface none;
    StretchCopy(none, {0, 0, 4, 4}, Different(4, 4), {0, 0, 4, 4});
    Surface dest = Background(4, 4);
    StretchCopy(dest, {0, 0, 4, 4}, Surface(), {0, 0, 4, 4});
    EXPECT_TRUE(SamePixels(dest, Background(4, 4)));
}

TEST(StretchCopy, HugeSizesDoNotOverflow) {
    constexpr int Huge = 2147483647;
    EXPECT_EQ(Copied(3, 0, Huge, 3, 0, 3), (Numbers{0, 0, 0}));
    EXPECT_EQ(Copied(3, Huge, -Huge, 3, 0, 3), (Numbers{2, 2, 2}));
    EXPECT_EQ(Copied(3, Huge, Huge, 3, 0, 3), (Numbers{-1, -1, -1}));
    EXPECT_EQ(Copied(3, -Huge, -Huge, 3, 0, 3), (Numbers{-1, -1, -1}));
}

TEST(StretchCopy, BothDirectionsAreIndependent) {
    const Surface source = Different(7, 5);
    Surface dest = Background(14, 5);
    StretchCopy(dest, {14, 0, -14, 5}, source, {0, 0, 7, 5});
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 14; ++x)
            ASSERT_EQ(dest.Row(y)[static_cast<std::size_t>(x)],
                      source.Row(y)[static_cast<std::size_t>((13 - x) / 2)]);
    }
}

/// Large enough for several threads, each with a band of its rows.
TEST(StretchCopy, LargePicturesAreAsSmallOnes) {
    const Surface source = Different(1703, 1301);
    for (const PixelRect& to : {PixelRect{1703, 0, -1703, 1301},
                                {0, 1301, 1703, -1301},
                                {0, 0, 2129, 1626},
                                {0, 0, 2129, 3903},
                                {-40, -50, 2200, 1700},
                                {2129, 1626, -2100, -1600}}) {
        Surface dest = Background(2129, 1626);
        StretchCopy(dest, to, source, {0, 0, 1703, 1301});
        const auto sourceOf = [](int at, int start, int size, int from) {
            const std::int64_t step = size < 0 ? start - 1 - at : at - start;
            return step < 0 || step >= std::abs(size) ? std::int64_t{-1} : step * from / std::abs(size);
        };
        for (int y = 0; y < dest.Height(); ++y) {
            const std::int64_t fromY = sourceOf(y, to.top, to.height, 1301);
            for (int x = 0; x < dest.Width(); ++x) {
                const std::int64_t fromX = sourceOf(x, to.left, to.width, 1703);
                const bool copied = fromX >= 0 && fromY >= 0;
                const Pixel expected =
                    copied ? source.Row(static_cast<int>(fromY))[static_cast<std::size_t>(fromX)] : Untouched;
                ASSERT_EQ(dest.Row(y)[static_cast<std::size_t>(x)], expected) << x << " " << y;
            }
        }
    }
}

TEST(StretchCopyInTwips, RoundsEachArgumentToPixels) {
    const forms::ScreenInfo screen;
    const Surface source = Different(10, 8);
    Surface flipped = Background(10, 8);
    StretchCopy(flipped, 150, 0, -150, 120, source, 0, 0, 150, 120, screen);
    Surface expected = Background(10, 8);
    StretchCopy(expected, {10, 0, -10, 8}, source, {0, 0, 10, 8});
    EXPECT_TRUE(SamePixels(flipped, expected));

    // 7.5 twips are half a pixel and go to 0, 22.5 to 2, 37.5 to 2, 52.5 to 4.
    Surface rounded = Background(10, 8);
    StretchCopy(rounded, 7.5F, 22.5F, 52.5F, 37.5F, source, 22.5F, 7.5F, 52.5F, 37.5F, screen);
    Surface plain = Background(10, 8);
    StretchCopy(plain, {0, 2, 4, 2}, source, {2, 0, 4, 2});
    EXPECT_TRUE(SamePixels(rounded, plain));
}

TEST(StretchCopyInTwips, EachDirectionHasItsOwnTwipsPerPixel) {
    forms::ScreenInfo screen;
    screen.twipsPerPixelX = 12;
    screen.twipsPerPixelY = 20;
    const Surface source = Different(10, 8);
    Surface dest = Background(10, 8);
    StretchCopy(dest, 0, 160, 120, -160, source, 0, 0, 120, 160, screen);
    Surface expected = Background(10, 8);
    StretchCopy(expected, {0, 8, 10, -8}, source, {0, 0, 10, 8});
    EXPECT_TRUE(SamePixels(dest, expected));
}

TEST(StretchCopyInTwips, WhatDoesNotFitOverflows) {
    const Surface source = Different(2, 2);
    Surface dest = Background(2, 2);
    EXPECT_EQ(ErrorOfCall([&] { StretchCopy(dest, 1e12F, 0, 30, 30, source, 0, 0, 30, 30, {}); }), 6);
}

}  // namespace
}  // namespace tavrix
