#include "backends/shared/help/HelpIndex.h"

#include <gtest/gtest.h>

namespace tavrix::test {
namespace {

using Titles = std::vector<std::string>;

HelpBook Book(const std::string& pages) {
    return *HelpBook::Parse("TAVRIX HELP 1\n" + pages);
}

Titles TitlesOf(const std::vector<const HelpPage*>& pages) {
    Titles titles;
    for (const HelpPage* page : pages)
        titles.push_back(page->title);
    return titles;
}

TEST(HelpChaptersTest, AreThoseOfTheContentsPage) {
    const HelpBook book = Book(
        "@page 0 Contents\n**Looking**\n\n- [a](page:1)\n- [b](page:2)\n- "
        "[again](page:1)\n\n**Empty**\n\n**Rest** of it\n"
        "**Changing**\n- [c](page:3)\n- [none](page:99)\n- [other](http://x)\n- no link\n[d](page:4)\n"
        "@page 1 One\n@page 2 Two\n@page 3 Three\n@page 4 Four\n");
    const auto chapters = ChaptersOf(book);
    ASSERT_EQ(chapters.size(), 3U);
    EXPECT_EQ(chapters[0].title, "Looking");
    EXPECT_EQ(TitlesOf(chapters[0].pages), (Titles{"One", "Two"}));
    EXPECT_EQ(chapters[1].title, "Changing");
    EXPECT_EQ(TitlesOf(chapters[1].pages), (Titles{"Three"}));
    EXPECT_EQ(chapters[2].title, "");
    EXPECT_EQ(TitlesOf(chapters[2].pages), (Titles{"Four"}));
}

TEST(HelpChaptersTest, WithoutContentsThePagesStandForThemselves) {
    const HelpBook book = Book("@page 1 One\n- [b](page:2)\n@page 2 Two\n");
    const auto chapters = ChaptersOf(book);
    ASSERT_EQ(chapters.size(), 1U);
    EXPECT_EQ(chapters[0].title, "");
    EXPECT_EQ(TitlesOf(chapters[0].pages), (Titles{"One", "Two"}));
    const HelpBook listed = Book("@page 0 C\n- [b](page:2)\n@page 2 Two\n");
    ASSERT_EQ(ChaptersOf(listed).size(), 1U);
    EXPECT_EQ(ChaptersOf(listed)[0].title, "");
}

TEST(HelpWordsTest, AreLettersAndDigitsInUpperCase) {
    EXPECT_EQ(WordsOf("*F1*, 90° (the key)K\xC3\xA4the"),
              (Titles{"F1", "90\xC2\xB0", "THE", "KEY", "K\xC3\x84THE"}));
    EXPECT_EQ(WordsOf(" -- "), Titles{});
    EXPECT_EQ(WordsOf(""), Titles{});
}

TEST(HelpWordsTest, StemsLoseTheirEndings) {
    const std::vector<std::pair<std::string, std::string>> stems{
        {"ROTATING", "ROTAT"}, {"ROTATION", "ROTAT"}, {"ROTATE", "ROTAT"}, {"CROPPING", "CROP"},
        {"SHOWS", "SHOW"},     {"IMAGES", "IMAG"},    {"IMAGE", "IMAG"},   {"TELLING", "TELL"},
        {"BUS", "BUS"},        {"USED", "USED"},      {"SIZE", "SIZE"},    {"F1", "F1"}};
    for (const auto& [word, stem] : stems)
        EXPECT_EQ(StemOf(word), stem);
}

class HelpSearchTest : public ::testing::Test {
  protected:
    Titles Find(const std::string& text) { return TitlesOf(index.Find(text)); }

    HelpBook book = Book(
        "@page 0 Contents\nrotate crop save zebra\n"
        "@page 1 Rotating\nTurns the image. See [saving](page:3) and [x](page:777).\n"
        "@page 2 Cropping\nCuts the image; rotate it first.\n"
        "@page 3 Saving\nWrites the image. Saves. Saved. Zebra.\n");
    HelpIndex index{book};
};

TEST_F(HelpSearchTest, FindsByWordsTheirBeginningsAndTheirStems) {
    EXPECT_EQ(Find("zebra"), Titles{"Saving"});
    EXPECT_EQ(Find("ZEB"), Titles{"Saving"});
    EXPECT_EQ(Find("zebras"), Titles{"Saving"});
    EXPECT_EQ(Find("ebra"), Titles{});
    EXPECT_EQ(Find("rotated"), (Titles{"Rotating", "Cropping"}));
}

TEST_F(HelpSearchTest, TitlesCountMostAndThenHowOftenAPageSaysIt) {
    EXPECT_EQ(Find("rotating"), (Titles{"Rotating", "Cropping"}));
    EXPECT_EQ(Find("saving"), (Titles{"Saving", "Rotating"}));
}

TEST_F(HelpSearchTest, PagesWithMoreOfTheWordsTakeThePlaceOfThoseWithFewer) {
    EXPECT_EQ(Find("image"), (Titles{"Rotating", "Cropping", "Saving"}));
    EXPECT_EQ(Find("image zebra"), Titles{"Saving"});
    EXPECT_EQ(Find("zebra nothing"), Titles{"Saving"});
    EXPECT_EQ(Find("nothing"), Titles{});
}

TEST_F(HelpSearchTest, WithoutAWordNothingIsFound) {
    EXPECT_EQ(Find(""), Titles{});
    EXPECT_EQ(Find(" , "), Titles{});
}

TEST_F(HelpSearchTest, AddressesOfLinksAreNoText) {
    EXPECT_EQ(Find("page"), Titles{});
    EXPECT_EQ(Find("777"), Titles{});
}

TEST(HelpIndexTest, AWordThatFewPagesHaveCountsMore) {
    std::string text =
        "TAVRIX HELP 1\n@page 0 Contents\nx\n@page 1 One\nboat sea sea sea sea sea\n@page 2 Two\nboat boat "
        "boat sea\n";
    for (int page = 3; page < 20; ++page)
        text += "@page " + std::to_string(page) + " More\nsea\n";
    const HelpBook book = *HelpBook::Parse(text);
    const auto found = HelpIndex(book).Find("boat sea");
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found.front()->context, 2U);
}

}  // namespace
}  // namespace tavrix::test
