#include "imaging/graphics/Shrink.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace tavrix {
namespace {

Surface RandomSurface(int width, int height, bool opaque) {
    std::mt19937 random(static_cast<unsigned>(width * 1000 + height));
    Surface surface(width, height);
    for (int y = 0; y < height; ++y) {
        for (Pixel& pixel : surface.Row(y)) {
            pixel = static_cast<Pixel>(random());
            if (opaque) pixel |= 0xFF000000U;
            if (!opaque && random() % 3 == 0) pixel &= 0xFFFFFFU;
        }
    }
    return surface;
}

/// The average over the pixels that fall on one, told plainly.
Pixel Average(const Surface& from, int x0, int x1, int y0, int y1) {
    double sums[4] = {};
    for (int y = y0; y < y1; ++y) {
        for (int x = x0; x < x1; ++x) {
            const Pixel pixel = from.Row(y)[static_cast<std::size_t>(x)];
            const double alpha = pixel >> 24U;
            sums[0] += alpha;
            for (unsigned channel = 1; channel < 4; ++channel)
                sums[channel] += alpha * ((pixel >> (24 - 8 * channel)) & 0xFFU);
        }
    }
    if (sums[0] == 0) return 0;
    Pixel result = static_cast<Pixel>(std::floor(sums[0] / ((x1 - x0) * (y1 - y0)) + 0.5)) << 24U;
    for (unsigned channel = 1; channel < 4; ++channel)
        result |= static_cast<Pixel>(std::floor(sums[channel] / sums[0] + 0.5)) << (24 - 8 * channel);
    return result;
}

struct Sizes {
    int fromWidth, fromHeight, toWidth, toHeight;
};

class ShrinkTest : public testing::TestWithParam<Sizes> {};

TEST_P(ShrinkTest, EachPixelIsTheAverageOfThoseThatFallOnIt) {
    const auto [fromWidth, fromHeight, toWidth, toHeight] = GetParam();
    for (const bool opaque : {true, false}) {
        const Surface from = RandomSurface(fromWidth, fromHeight, opaque);
        Shrink shrink(fromWidth, fromHeight, toWidth, toHeight);
        shrink.Take(from, fromHeight);
        EXPECT_TRUE(shrink.Whole());
        for (int y = 0; y < toHeight; ++y) {
            for (int x = 0; x < toWidth; ++x) {
                EXPECT_EQ(shrink.Copy().Row(y)[static_cast<std::size_t>(x)],
                          Average(from, fromWidth * x / toWidth, fromWidth * (x + 1) / toWidth,
                                  fromHeight * y / toHeight, fromHeight * (y + 1) / toHeight))
                    << x << "," << y;
            }
        }
    }
}

TEST_P(ShrinkTest, RowsInAnyPortionsGiveTheSameCopy) {
    const auto [fromWidth, fromHeight, toWidth, toHeight] = GetParam();
    const Surface from = RandomSurface(fromWidth, fromHeight, false);
    Shrink whole(fromWidth, fromHeight, toWidth, toHeight);
    whole.Take(from, fromHeight);
    for (const int portion : {1, 2, 3, 7}) {
        Shrink shrink(fromWidth, fromHeight, toWidth, toHeight);
        for (int ready = 0; ready < fromHeight; ready += portion) {
            shrink.Take(from, ready);
            EXPECT_EQ(shrink.Taken(), ready);
            EXPECT_FALSE(shrink.Whole());
        }
        shrink.Take(from, fromHeight + 5);
        EXPECT_EQ(shrink.Taken(), fromHeight);
        for (int y = 0; y < toHeight; ++y)
            EXPECT_TRUE(std::ranges::equal(shrink.Copy().Row(y), whole.Copy().Row(y))) << y;
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, ShrinkTest,
                         testing::Values(Sizes{1, 1, 1, 1}, Sizes{2, 2, 1, 1}, Sizes{5, 3, 5, 2},
                                         Sizes{7, 5, 3, 5}, Sizes{13, 11, 4, 3}, Sizes{97, 61, 31, 60},
                                         Sizes{64, 1, 9, 1}, Sizes{1, 50, 1, 7}));

TEST(ShrinkPartTest, RowsToComeAreTransparent) {
    const Surface from = RandomSurface(8, 8, true);
    Shrink shrink(8, 8, 4, 4);
    shrink.Take(from, 5);  // two and a half rows of the copy
    EXPECT_NE(shrink.Copy().Row(1)[0], 0U);
    EXPECT_EQ(shrink.Copy().Row(2)[0], 0U);
    EXPECT_EQ(shrink.Copy().Row(3)[0], 0U);
}

}  // namespace
}  // namespace tavrix
