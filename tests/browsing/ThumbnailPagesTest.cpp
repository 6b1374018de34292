#include "browsing/ThumbnailPages.h"

#include <gtest/gtest.h>

namespace tavrix {
namespace {

ThumbnailPages Shown(int last) {
    ThumbnailPages pages;
    pages.ThumbLastShown = last;
    return pages;
}

TEST(ThumbnailPages, NextGoesOnBehindTheLastAndWrapsOneEarly) {
    for (const auto& [last, count, start] :
         {std::tuple{9, 30, 9}, {28, 30, 28}, {29, 30, 0}, {30, 30, 0}, {9, 10, 0}, {9, 11, 9}}) {
        ThumbnailPages pages = Shown(last);
        EXPECT_EQ(pages.Next(count), start) << last << " of " << count;
        EXPECT_EQ(pages.ThumbLastShown, start == 0 ? 0 : last);
    }
}

TEST(ThumbnailPages, PreviousWrapsFromTheFirstPageAndStopsAtTheStart) {
    for (const auto& [last, count, visible, start] : {std::tuple{9, 30, 9, 21},
                                                      {3, 30, 3, 21},
                                                      {10, 30, 9, 0},
                                                      {17, 30, 9, 0},
                                                      {18, 30, 9, 0},
                                                      {19, 30, 9, 1},
                                                      {30, 30, 3, 18},
                                                      {11, 11, 2, 0}})
        EXPECT_EQ(Shown(last).Previous(count, visible), start) << last << " with " << visible;
}

TEST(ThumbnailPages, OneForwardMovesThePageAndWrapsAtTheEnd) {
    for (const auto& [last, count, start, after] :
         {std::tuple{9, 30, 1, 9}, {29, 30, 21, 29}, {30, 30, 0, 0}, {3, 30, -5, 3}}) {
        ThumbnailPages pages = Shown(last);
        EXPECT_EQ(pages.Forward1(count), start);
        EXPECT_EQ(pages.ThumbLastShown, after);
    }
}

TEST(ThumbnailPages, OneBackMovesThePageAndWrapsAtTheStart) {
    for (const auto& [last, count, start, after] :
         {std::tuple{10, 30, 0, 10}, {30, 30, 20, 30}, {9, 30, 21, 21}, {4, 30, 21, 21}}) {
        ThumbnailPages pages = Shown(last);
        EXPECT_EQ(pages.Back1(count), start);
        EXPECT_EQ(pages.ThumbLastShown, after);
    }
}

TEST(ThumbnailPages, APageEndsBehindTheIndexThatItReached) {
    for (const auto& [reached, count, last] :
         {std::tuple{8, 30, 9}, {8, 9, 9}, {9, 9, 9}, {0, 30, 1}, {28, 30, 29}, {29, 30, 30}, {30, 30, 30}}) {
        ThumbnailPages pages;
        pages.Made(reached, count);
        EXPECT_EQ(pages.ThumbLastShown, last) << reached << " of " << count;
    }
}

TEST(ThumbnailPages, ASlotLeadsToTheListByWhatIsVisible) {
    EXPECT_EQ(Shown(18).IndexOf(0, 9), 9);
    EXPECT_EQ(Shown(18).IndexOf(8, 9), 17);
    EXPECT_EQ(Shown(13).IndexOf(0, 3), 10);
    EXPECT_EQ(Shown(9).IndexOf(0, 2), 7);
    EXPECT_EQ(Shown(8).IndexOf(3, 8), 3);
}

}  // namespace
}  // namespace tavrix
