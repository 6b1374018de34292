#include "core/SlideShow.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "support/ErrorOfCall.h"

namespace tavrix::test {
namespace {

SlideTexts TextsOf(const std::vector<std::string>& texts) {
    SlideTexts slides;
    for (std::size_t i = 0; i < texts.size(); ++i)
        slides.Set(static_cast<int>(i), texts[i]);
    return slides;
}

std::vector<std::string> FirstOf(const SlideTexts& slides, int count) {
    std::vector<std::string> texts;
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
        EXPECT_EQ(ErrorOfCall([&] { slides.Insert(index, "x"); }), 9) << index;
        EXPECT_EQ(ErrorOfCall([&] { slides.Remove(index); }), 9) << index;
        EXPECT_EQ(slides, TextsOf({"a"}));
    }
}

TEST(SlideTextsTest, TheListEndsAtTheFirstEmptyText) {
    EXPECT_EQ(TextsOf({"a", "b"}).FirstEmpty(), 2);
    EXPECT_EQ(TextsOf({"a", "", "c"}).FirstEmpty(), 1);
}

TEST(SlideTextsTest, InsertingMovesTheRestUp) {
    SlideTexts slides = TextsOf({"a", "b"});
    slides.Insert(1, "");
    EXPECT_EQ(FirstOf(slides, 4), (std::vector<std::string>{"a", "", "b", ""}));
    slides.Insert(0, "x");
    EXPECT_EQ(FirstOf(slides, 5), (std::vector<std::string>{"x", "a", "", "b", ""}));
    slides.Insert(10, "far");
    EXPECT_EQ(slides[10], "far");
    EXPECT_EQ(slides[4], "");
}

TEST(SlideTextsTest, InsertingIntoFullSlotsLosesTheLast) {
    SlideTexts slides = TextsOf({"a"});
    slides.Set(29999, "y");
    slides.Set(30000, "z");
    slides.Insert(0, "x");
    EXPECT_EQ(slides[0], "x");
    EXPECT_EQ(slides[1], "a");
    EXPECT_EQ(slides[30000], "y");
    EXPECT_EQ(slides[29999], "");
}

TEST(SlideTextsTest, RemovingMovesTheRestDown) {
    SlideTexts slides = TextsOf({"a", "b", "c"});
    slides.Remove(0);
    EXPECT_EQ(FirstOf(slides, 3), (std::vector<std::string>{"b", "c", ""}));
    slides.Remove(17);
    EXPECT_EQ(FirstOf(slides, 3), (std::vector<std::string>{"b", "c", ""}));
    slides.Set(30000, "z");
    slides.Remove(5);
    EXPECT_EQ(slides[29999], "z");
    EXPECT_EQ(slides[30000], "");
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
