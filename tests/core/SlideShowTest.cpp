#include "core/SlideShow.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "support/ErrorOfCall.h"

namespace tavrix::test {
namespace {

using Texts = std::vector<std::string>;

SlideTexts TextsOf(const std::vector<std::string>& texts) {
    SlideTexts slides;
    for (std::size_t i = 0; i < texts.size(); ++i)
        slides.Set(static_cast<int>(i), texts[i]);
    return slides;
}

Texts FirstOf(const SlideTexts& slides, int count) {
    Texts texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(slides[i]);
    return texts;
}

TEST(SlideTextsTest, AllSlotsAreEmptyAtFirst) {
    const SlideTexts slides;
    EXPECT_EQ(slides[0], "");
    EXPECT_EQ(slides[30000], "");
    EXPECT_EQ(slides.FirstEmpty(), 0);
}

TEST(SlideTextsTest, ThereAre30001Slots) {
    SlideTexts slides;
    slides.Set(30000, "last");
    EXPECT_EQ(slides[30000], "last");
    EXPECT_EQ(slides[29999], "");
    for (int i = 0; i < 30000; ++i)
        slides.Set(i, "x");
    EXPECT_EQ(slides.FirstEmpty(), 30001);
}

TEST(SlideTextsTest, AnIndexOutsideFailsAndChangesNothing) {
    for (const int index : {-1, 30001, 32767, -32768}) {
        SlideTexts slides = TextsOf({"a"});
        EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(slides[index]); }), 9) << index;
        EXPECT_EQ(ErrorOfCall([&] { slides.Set(index, "x"); }), 9) << index;
        EXPECT_EQ(slides, TextsOf({"a"}));
    }
}

TEST(SlideTextsTest, TheListEndsAtTheFirstEmptyText) {
    EXPECT_EQ(TextsOf({"a", "b"}).FirstEmpty(), 2);
    EXPECT_EQ(TextsOf({"a", "", "c"}).FirstEmpty(), 1);
}

TEST(SlideTextsTest, ErasedTextsEqualThoseNeverSet) {
    SlideTexts slides = TextsOf({"a", "b"});
    EXPECT_NE(slides, SlideTexts());
    slides.Set(1, "");
    EXPECT_EQ(slides, TextsOf({"a"}));
    slides.Erase();
    EXPECT_EQ(slides, SlideTexts());
    EXPECT_EQ(slides.FirstEmpty(), 0);
}

/// A show whose descriptions name their slides.
ShowSlides SlidesOf(const Texts& paths) {
    ShowSlides slides;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        slides.SlideFiles.Set(static_cast<int>(i), paths[i]);
        slides.SlideDescriptions.Set(static_cast<int>(i), "about " + paths[i]);
    }
    return slides;
}

Texts PathsOf(const ShowSlides& slides) {
    return FirstOf(slides.SlideFiles, slides.Count());
}

/// Whether each slide has the description that it had in SlidesOf.
bool BelongTogether(const ShowSlides& slides) {
    for (int i = 0; i < slides.Count(); ++i) {
        if (slides.SlideDescriptions[i] != "about " + slides.SlideFiles[i]) return false;
    }
    return true;
}

ShowSlides ManySlides(int count) {
    Texts paths;
    for (int i = 0; i < count; ++i)
        paths.push_back(std::to_string(i));
    return SlidesOf(paths);
}

TEST(ShowSlidesTest, InsertedSlidesHaveNoDescriptionsAndMoveTheOthersWithTheirs) {
    ShowSlides slides = SlidesOf({"a", "b"});
    slides.InsertSlides(1, Texts{"x", "y"});
    EXPECT_EQ(PathsOf(slides), (Texts{"a", "x", "y", "b"}));
    EXPECT_EQ(FirstOf(slides.SlideDescriptions, 5), (Texts{"about a", "", "", "about b", ""}));
    slides.InsertSlides(0, Texts{"first"});
    slides.InsertSlides(slides.Count(), Texts{"last"});
    slides.InsertSlides(2, Texts{});
    EXPECT_EQ(PathsOf(slides), (Texts{"first", "a", "x", "y", "b", "last"}));
    EXPECT_EQ(slides.SlideDescriptions[4], "about b");
}

TEST(ShowSlidesTest, NothingIsInsertedIntoAFullShow) {
    ShowSlides slides = ManySlides(30'000);
    const ShowSlides before = slides;
    EXPECT_EQ(ErrorOfCall([&] { slides.InsertSlides(0, Texts{"x", "y"}); }), 9);
    EXPECT_EQ(slides, before);
    slides.InsertSlides(0, Texts{"x"});
    EXPECT_EQ(slides.Count(), 30'001);
    EXPECT_EQ(slides.SlideFiles[0], "x");
    EXPECT_EQ(slides.SlideFiles[30'000], "29999");
    EXPECT_EQ(slides.SlideDescriptions[30'000], "about 29999");
    const ShowSlides full = slides;
    EXPECT_EQ(ErrorOfCall([&] { slides.InsertSlides(5, Texts{"y"}); }), 9);
    EXPECT_EQ(slides, full);
    // No slot beyond the last one holds anything that could come back.
    slides.RemoveSlides(std::vector<int>{0});
    EXPECT_EQ(slides, before);
}

TEST(ShowSlidesTest, RemovedSlidesTakeTheirDescriptionsAlong) {
    ShowSlides slides = SlidesOf({"a", "b", "c", "d", "e"});
    slides.RemoveSlides(std::vector<int>{0, 2, 4});
    EXPECT_EQ(PathsOf(slides), (Texts{"b", "d"}));
    EXPECT_EQ(slides, SlidesOf({"b", "d"}));
    slides.RemoveSlides(std::vector<int>{});
    EXPECT_EQ(slides, SlidesOf({"b", "d"}));
    slides.RemoveSlides(std::vector<int>{0, 1});
    EXPECT_EQ(slides, ShowSlides());
}

TEST(ShowSlidesTest, AnOrderMovesEachSlideAsAWhole) {
    ShowSlides slides = SlidesOf({"a", "b", "c", "d"});
    slides.ArrangeSlides(std::vector<int>{2, 0, 3, 1});
    EXPECT_EQ(PathsOf(slides), (Texts{"c", "a", "d", "b"}));
    EXPECT_TRUE(BelongTogether(slides));
}

TEST(ShowSlidesTest, WhatIsBehindTheLastSlideDoesNotComeBack) {
    const auto withRest = [] {
        ShowSlides slides = SlidesOf({"a", "b"});
        slides.SlideFiles.Set(3, "behind the end");
        slides.SlideDescriptions.Set(2, "of none");
        return slides;
    };
    ShowSlides slides = withRest();
    slides.InsertSlides(2, Texts{"c"});
    EXPECT_EQ(PathsOf(slides), (Texts{"a", "b", "c"}));
    EXPECT_EQ(slides.SlideDescriptions[2], "");
    slides = withRest();
    slides.RemoveSlides(std::vector<int>{0});
    EXPECT_EQ(slides, SlidesOf({"b"}));
    slides = withRest();
    slides.ArrangeSlides(std::vector<int>{1, 0});
    EXPECT_EQ(slides, SlidesOf({"b", "a"}));
}

TEST(ShowSlidesTest, IndicesOutsideOfTheListFailAndChangeNothing) {
    ShowSlides slides = SlidesOf({"a", "b"});
    const ShowSlides before = slides;
    for (const int index : {-1, 3})
        EXPECT_EQ(ErrorOfCall([&] { slides.InsertSlides(index, Texts{"x"}); }), 9) << index;
    for (const std::vector<int>& indices : std::vector<std::vector<int>>{{-1}, {2}, {1, 0}, {0, 0}})
        EXPECT_EQ(ErrorOfCall([&] { slides.RemoveSlides(indices); }), 9);
    for (const std::vector<int>& order :
         std::vector<std::vector<int>>{{0}, {0, 1, 1}, {0, 0}, {1, 2}, {-1, 0}})
        EXPECT_EQ(ErrorOfCall([&] { slides.ArrangeSlides(order); }), 9);
    EXPECT_EQ(slides, before);
}

TEST(ShowSlidesTest, TheLongestShowKeepsPairsTogether) {
    ShowSlides slides = ManySlides(30'001);
    std::vector<int> everySecond, backwards;
    for (int i = 0; i < 30'001; ++i) {
        if (i % 2 == 1) everySecond.push_back(i);
        backwards.push_back(30'000 - i);
    }
    slides.ArrangeSlides(backwards);
    EXPECT_EQ(slides.SlideFiles[0], "30000");
    EXPECT_TRUE(BelongTogether(slides));
    slides.RemoveSlides(everySecond);
    EXPECT_EQ(slides.Count(), 15'001);
    EXPECT_EQ(slides.SlideFiles[15'000], "0");
    EXPECT_TRUE(BelongTogether(slides));
}

TEST(SlideShowTest, ErasingTheSlidesLeavesTheFlags) {
    SlideShow show;
    EXPECT_TRUE(show.Empty());
    show.SlideFiles.Set(0, "a.bmp");
    show.SlideDescriptions.Set(0, "about a");
    show.SlideCount = 1;
    show.ShowChanged = true;
    EXPECT_FALSE(show.Empty());
    show.EraseSlides();
    EXPECT_TRUE(show.Empty());
    EXPECT_EQ(show.SlideDescriptions[0], "");
    EXPECT_EQ(show.SlideCount, 1);
    EXPECT_TRUE(show.ShowChanged);
}

}  // namespace
}  // namespace tavrix::test
