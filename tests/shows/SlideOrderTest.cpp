#include "shows/editor/SlideOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tavrix {
namespace {

using Order = std::vector<int>;

/// The mix as it is told, on a plain list.
Order PlainMix(int count, Random& random) {
    Order order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0);
    for (int i = 0; i < count; ++i) {
        const int taken = order[static_cast<std::size_t>(i)];
        order.erase(order.begin() + i);
        const float r = random.Next();
        const int target = static_cast<int>(std::floor(static_cast<float>(count - 1 - 2) * r));
        order.insert(order.begin() + (target < 0 ? i : target), taken);
    }
    return order;
}

TEST(SlideOrderTest, ReversedTheLastComesFirst) {
    EXPECT_EQ(ReverseOrder(4), (Order{3, 2, 1, 0}));
    EXPECT_EQ(ReverseOrder(0), Order{});
}

TEST(SlideOrderTest, AMovedSlideLeavesTheOthersInTheirOrder) {
    EXPECT_EQ(MoveOrder(5, 1, 3), (Order{0, 2, 3, 1, 4}));
    EXPECT_EQ(MoveOrder(5, 3, 1), (Order{0, 3, 1, 2, 4}));
    EXPECT_EQ(MoveOrder(5, 0, 4), (Order{1, 2, 3, 4, 0}));
    EXPECT_EQ(MoveOrder(5, 4, 0), (Order{4, 0, 1, 2, 3}));
}

TEST(SlideOrderTest, GatheredSlidesComeTogetherBeforeARow) {
    EXPECT_EQ(GatherOrder(6, {1, 4}, 3), (Order{0, 2, 1, 4, 3, 5}));
    EXPECT_EQ(GatherOrder(6, {1, 4}, 0), (Order{1, 4, 0, 2, 3, 5}));
    EXPECT_EQ(GatherOrder(6, {1, 4}, 6), (Order{0, 2, 3, 5, 1, 4}));
    EXPECT_EQ(GatherOrder(6, {1, 4}, 4), (Order{0, 2, 3, 1, 4, 5}));
    EXPECT_EQ(GatherOrder(3, {1}, 1), (Order{0, 1, 2}));
    EXPECT_EQ(GatherOrder(3, {1}, 2), (Order{0, 1, 2}));
    EXPECT_EQ(GatherOrder(3, {0, 1, 2}, 1), (Order{0, 1, 2}));
}

TEST(SlideOrderTest, TheMixIsTheOneThatIsTold) {
    for (const int count : {3, 4, 10, 127, 128, 129, 255, 256, 257, 2000, 5000}) {
        Random ours;
        Random plain;
        EXPECT_EQ(RandomOrder(count, ours), PlainMix(count, plain)) << count;
        EXPECT_EQ(ours.Next(), plain.Next()) << "a number for each slide";
    }
}

TEST(SlideOrderTest, TheMixNamesEachSlideOnce) {
    Random random;
    Order order = RandomOrder(30001, random);
    EXPECT_FALSE(std::ranges::is_sorted(order));
    std::ranges::sort(order);
    Order all(30001);
    std::iota(all.begin(), all.end(), 0);
    EXPECT_EQ(order, all);
}

TEST(SlideOrderTest, OfThreeSlidesAllGoToTheTopInTurn) {
    Random random;
    EXPECT_EQ(RandomOrder(3, random), (Order{2, 1, 0}));
}

TEST(SlideOrderTest, TwoSlidesStayAsTheyAre) {
    Random random;
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(RandomOrder(2, random), (Order{0, 1}));
    Random twice;
    for (int i = 0; i < 40; ++i)
        static_cast<void>(twice.Next());
    EXPECT_EQ(random.Next(), twice.Next());
}

}  // namespace
}  // namespace tavrix
