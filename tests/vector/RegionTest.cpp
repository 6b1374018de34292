#include "imaging/vector/Region.h"

#include <gtest/gtest.h>

#include <limits>

#include "imaging/vector/Arcs.h"
#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;

constexpr int Size = 24;
using Mask = std::vector<bool>;

Mask MaskOf(const Region& region) {
    Mask mask;
    for (int y = 0; y < Size; ++y)
        for (int x = 0; x < Size; ++x)
            mask.push_back(region.Contains(x, y));
    return mask;
}

/// The rows of a region are in order, apart, and agree with Contains.
void ExpectSound(const Region& region) {
    const PixelRect bounds = region.Bounds();
    for (int y = bounds.top - 1; y <= bounds.top + bounds.height; ++y) {
        int end = std::numeric_limits<int>::min();
        for (const Region::Span& span : region.Row(y)) {
            EXPECT_GT(span.left, end);
            EXPECT_LT(span.left, span.right);
            EXPECT_GE(span.left, bounds.left);
            EXPECT_LE(span.right, bounds.left + bounds.width);
            EXPECT_FALSE(region.Contains(span.left - 1, y));
            EXPECT_TRUE(region.Contains(span.left, y) && region.Contains(span.right - 1, y));
            EXPECT_FALSE(region.Contains(span.right, y));
            end = span.right;
        }
    }
}

Region RandomRegion(test::Numbers& numbers, WorkBudget& budget) {
    Path path;
    for (int i = 0; i < 6; ++i)
        path.LineTo({numbers.Between(-5, Size + 5), numbers.Between(-5, Size + 5)});
    path.Close();
    return Region::Of(path, FillRule::EvenOdd, {0, 0, Size, Size}, budget);
}

TEST(Region, CombinesLikeAMask) {
    test::Numbers numbers(11);
    WorkBudget budget;
    Region region;
    Mask mask(static_cast<std::size_t>(Size) * Size);
    for (int round = 0; round < 300; ++round) {
        const Region other = round % 3 == 0 ? Region(PixelRect{numbers.Below(20), numbers.Below(20),
                                                               numbers.Below(12), numbers.Below(12)})
                                            : RandomRegion(numbers, budget);
        const auto mode = static_cast<RegionMode>(1 + numbers.Below(5));
        const Mask with = MaskOf(other);
        region = region.Combined(mode, other, budget);
        for (std::size_t i = 0; i < mask.size(); ++i) {
            switch (mode) {
                case RegionMode::And:
                    mask[i] = mask[i] && with[i];
                    break;
                case RegionMode::Or:
                    mask[i] = mask[i] || with[i];
                    break;
                case RegionMode::Xor:
                    mask[i] = mask[i] != with[i];
                    break;
                case RegionMode::Difference:
                    mask[i] = mask[i] && !with[i];
                    break;
                case RegionMode::Copy:
                    mask[i] = with[i];
                    break;
            }
        }
        ASSERT_EQ(MaskOf(region), mask) << round;
        ExpectSound(region);
    }
}

TEST(Region, OfAPathHoldsThePixelsWhoseCentreLiesInside) {
    WorkBudget budget;
    Path ellipse;
    AddEllipse(ellipse, {2, 3, 20, 19});
    const Region region = Region::Of(ellipse, FillRule::EvenOdd, {0, 0, Size, Size}, budget);
    for (int y = 0; y < Size; ++y)
        for (int x = 0; x < Size; ++x) {
            const double distance = std::hypot((x + 0.5 - 11) / 9, (y + 0.5 - 11) / 8);
            if (std::abs(distance - 1) > 0.01) {
                EXPECT_EQ(region.Contains(x, y), distance < 1) << x << ' ' << y;
            }
        }
    EXPECT_EQ(region.Bounds(), (PixelRect{2, 3, 18, 16}));
}

TEST(Region, OfRectanglesIsTheirUnion) {
    test::Numbers numbers(12);
    WorkBudget budget;
    std::vector<PixelRect> rects;
    Mask mask(static_cast<std::size_t>(Size) * Size);
    for (int i = 0; i < 20; ++i) {
        const int left = numbers.Below(Size), top = numbers.Below(Size);
        const int right = numbers.Below(Size), bottom = numbers.Below(Size);
        rects.push_back({left, top, right - left, bottom - top});
        for (int y = std::min(top, bottom); y < std::max(top, bottom); ++y)
            for (int x = std::min(left, right); x < std::max(left, right); ++x)
                mask[static_cast<std::size_t>(y) * Size + static_cast<std::size_t>(x)] = true;
    }
    const Region region = Region::Of(rects, budget);
    EXPECT_EQ(MaskOf(region), mask);
    ExpectSound(region);
    EXPECT_TRUE(Region::Of(std::span<const PixelRect>(), budget).Empty());
}

TEST(Region, OfOneRectangleIsOneBandHoweverItCameAbout) {
    WorkBudget budget;
    const Region left(PixelRect{0, 0, 5, 100}), right(PixelRect{5, 0, 5, 100});
    const Region both = left.Combined(RegionMode::Or, right, budget);
    EXPECT_EQ(both, Region(PixelRect{0, 0, 10, 100}));
    EXPECT_EQ(both.Size(), 2U);
    const Region top(PixelRect{0, 0, 5, 50}), bottom(PixelRect{0, 50, 5, 50});
    EXPECT_EQ(top.Combined(RegionMode::Or, bottom, budget), left);
    EXPECT_TRUE(left.Combined(RegionMode::Xor, left, budget).Empty());
}

TEST(Region, EmptyOnesCombine) {
    WorkBudget budget;
    const Region box(PixelRect{1, 2, 3, 4}), empty;
    EXPECT_EQ(empty.Combined(RegionMode::Or, box, budget), box);
    EXPECT_EQ(box.Combined(RegionMode::Or, empty, budget), box);
    EXPECT_TRUE(box.Combined(RegionMode::And, empty, budget).Empty());
    EXPECT_TRUE(empty.Combined(RegionMode::Difference, box, budget).Empty());
    EXPECT_TRUE(box.Combined(RegionMode::Copy, empty, budget).Empty());
    EXPECT_TRUE(Region(PixelRect{5, 5, 0, 9}).Empty());
    EXPECT_EQ(empty.Bounds(), PixelRect{});
}

TEST(Region, ShiftsAsAWhole) {
    WorkBudget budget;
    test::Numbers numbers(13);
    const Region region = RandomRegion(numbers, budget);
    const Region shifted = region.Shifted(-7, 30, budget);
    for (int y = 0; y < Size; ++y)
        for (int x = 0; x < Size; ++x)
            EXPECT_EQ(shifted.Contains(x - 7, y + 30), region.Contains(x, y));
    EXPECT_EQ(shifted.Shifted(7, -30, budget), region);
    constexpr int Most = std::numeric_limits<int>::max();
    EXPECT_TRUE(region.Shifted(Most, 0, budget).Empty());
}

TEST(Region, TakesAnyRectangle) {
    constexpr int Most = std::numeric_limits<int>::max(), Least = std::numeric_limits<int>::min();
    const Region all(PixelRect{Least, Least, Most, Most});
    EXPECT_FALSE(all.Contains(1, 1));
    EXPECT_TRUE(all.Contains(-5, -5));
    EXPECT_TRUE(Region(PixelRect{Most, Most, Most, Most}).Empty());
    const Region backwards(PixelRect{10, 10, -5, -5});
    EXPECT_EQ(backwards.Bounds(), (PixelRect{5, 5, 5, 5}));
}

TEST(Region, SavedOnesShareWhatIsInThem) {
    WorkBudget budget;
    test::Numbers numbers(14);
    const Region region = RandomRegion(numbers, budget);
    const std::vector<Region> saved(10'000, region);
    EXPECT_EQ(saved.back().Row(10).data(), region.Row(10).data());
}

TEST(Region, WithoutBudgetStaysAsItIs) {
    WorkBudget budget(100);
    WorkBudget unlimited;
    test::Numbers numbers(15);
    const Region a = RandomRegion(numbers, unlimited), b = RandomRegion(numbers, unlimited);
    EXPECT_EQ(a.Combined(RegionMode::Xor, b, budget), a);
    EXPECT_TRUE(budget.Exhausted());
}

TEST(Region, CombsThatCrossStopAtTheBudget) {
    // 2 * 8,000 strips make 64 million spots.
    std::vector<PixelRect> columns, rows;
    for (int i = 0; i < 8'000; ++i) {
        columns.push_back({2 * i, 0, 1, 16'000});
        rows.push_back({0, 2 * i, 16'000, 1});
    }
    WorkBudget budget(200'000'000);
    const Region a = Region::Of(columns, budget), b = Region::Of(rows, budget);
    const Region crossed = a.Combined(RegionMode::And, b, budget);
    EXPECT_LE(crossed.Size(), 4'000'000U);
}

}  // namespace
}  // namespace tavrix
