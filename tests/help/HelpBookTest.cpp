#include "backends/shared/help/HelpBook.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tavrix::test {
namespace {

const std::string Start = "TAVRIX HELP 1\n";

std::optional<HelpBook> Parse(const std::string& pages) {
    return HelpBook::Parse(Start + pages);
}

TEST(HelpBookTest, PagesHaveNumbersTitlesAndBodies) {
    const auto book =
        Parse("what is no page\n@page 0 Contents\n\nfirst\nsecond\n@page 1320  Display & colors \n*one*\n");
    ASSERT_TRUE(book);
    ASSERT_EQ(book->Pages().size(), 2U);
    EXPECT_EQ(book->Pages()[0].context, 0U);
    EXPECT_EQ(book->Pages()[0].title, "Contents");
    EXPECT_EQ(book->Pages()[0].body, "\nfirst\nsecond\n");
    EXPECT_EQ(book->Pages()[1].context, 1320U);
    EXPECT_EQ(book->Pages()[1].title, "Display & colors");
    EXPECT_EQ(book->Pages()[1].body, "*one*\n");
}

TEST(HelpBookTest, ItsLinesMayEndAsThoseOfAnySystem) {
    const auto book = HelpBook::Parse("\xEF\xBB\xBFTAVRIX HELP 1\r\n@page 5 Five\r\nbody\r\nno end");
    ASSERT_TRUE(book);
    EXPECT_EQ(book->Pages()[0].title, "Five");
    EXPECT_EQ(book->Pages()[0].body, "body\nno end\n");
}

TEST(HelpBookTest, TwoMarksStandForOne) {
    const auto book = Parse("@page 1 One\n@@page 2 no page\n@other\n@@\n");
    ASSERT_TRUE(book);
    EXPECT_EQ(book->Pages().size(), 1U);
    EXPECT_EQ(book->Pages()[0].body, "@page 2 no page\n@other\n@\n");
}

TEST(HelpBookTest, TextIsUtf8OrWindows1252) {
    EXPECT_EQ(Parse("@page 1 K\u00E4the\n")->Pages()[0].title, "K\u00E4the");
    EXPECT_EQ(Parse("@page 1 K\xE4the\n")->Pages()[0].title, "K\u00E4the");
}

TEST(HelpBookTest, WhatIsNoHelpFileIsNone) {
    for (const std::string& bytes :
         {std::string(), std::string("TAVRIX HELP"), std::string("TAVRIX HELP 1"),
          std::string("TAVRIX HELP 2\n@page 1 x\n"), std::string("TAVRIX HELP 10\n@page 1 x\n"),
          std::string("\nTAVRIX HELP 1\n@page 1 x\n"), std::string("\x3F\x5F\x03\0", 4), Start,
          Start + "text alone\n"}) {
        EXPECT_FALSE(HelpBook::Parse(bytes)) << bytes;
    }
    EXPECT_FALSE(HelpBook::Parse(Start + "@page 1 x\n" + std::string(HelpBook::LargestFile, 'x')));
}

TEST(HelpBookTest, PagesWithoutANumberOfTheirOwnAreLeftOut) {
    const auto book = Parse(
        "@page one One\n1\n@page -2 Minus\n2\n@page 4294967296 Large\n3\n@page 4\n4\n@page  5 Blank\n5\n"
        "@page 6  \n6\n@page 7 Seven\n7\n@page 7 Again\n8\n@page 4294967295 Last\n9\n");
    ASSERT_TRUE(book);
    ASSERT_EQ(book->Pages().size(), 2U);
    EXPECT_EQ(book->Pages()[0].title, "Seven");
    EXPECT_EQ(book->Pages()[0].body, "7\n");
    EXPECT_EQ(book->Pages()[1].context, 4294967295U);
}

TEST(HelpBookTest, ControlCharactersAreLeftOut) {
    const auto book = Parse(std::string("@page 1 a\0\x1B[b\nc\x07\td\x7F\n", 20));
    ASSERT_TRUE(book);
    EXPECT_EQ(book->Pages()[0].title, "a[b");
    EXPECT_EQ(book->Pages()[0].body, "c\td\n");
}

TEST(HelpBookTest, LongBodiesAndManyPagesAreCut) {
    std::string lines;
    while (lines.size() < 2 * HelpBook::LongestBody)
        lines += "a line of text\n";
    const auto book = Parse("@page 1 One\n" + lines + "@page 2 Two\nrest\n");
    ASSERT_TRUE(book);
    EXPECT_LE(book->Pages()[0].body.size(), HelpBook::LongestBody);
    EXPECT_GT(book->Pages()[0].body.size(), HelpBook::LongestBody - 20);
    EXPECT_TRUE(book->Pages()[0].body.ends_with("a line of text\n"));
    EXPECT_EQ(book->Pages()[1].body, "rest\n");

    std::string pages;
    for (std::size_t i = 0; i < 2 * HelpBook::MostPages; ++i)
        pages += "@page " + std::to_string(i) + " p\nx\n";
    EXPECT_EQ(Parse(pages)->Pages().size(), HelpBook::MostPages);
}

TEST(HelpBookTest, AnUnknownNumberLeadsToTheContents) {
    const auto book = Parse("@page 5 Five\n@page 0 Contents\n");
    ASSERT_TRUE(book);
    EXPECT_EQ(book->PageOrContents(5).title, "Five");
    EXPECT_EQ(book->PageOrContents(0).title, "Contents");
    EXPECT_EQ(book->PageOrContents(6).title, "Contents");
    EXPECT_EQ(book->Find(6), nullptr);
    EXPECT_EQ(Parse("@page 5 Five\n@page 7 Seven\n")->PageOrContents(6).title, "Five");
}

TEST(HelpBookTest, OnlyLinksToPagesAreLinksToPages) {
    EXPECT_EQ(HelpBook::PageOfLink("page:170"), 170U);
    for (const char* address : {"", "page:", "page:x", "page:1x", "page:-1", "page: 1", "page:4294967296",
                                "Page:1", "http://page:1", "file:///etc/passwd"}) {
        EXPECT_FALSE(HelpBook::PageOfLink(address)) << address;
    }
}

TEST(HelpBookTest, DamagedBytesAreReadSomehow) {
    const std::string whole =
        Start + "@page 0 Contents\n[x](page:5)\n@page 5 F\xC3\xBCnf\n@@a\r\n\xE2\x82\xAC\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        if (const auto book = HelpBook::Parse(whole.substr(0, length))) {
            EXPECT_FALSE(book->Pages().empty());
        }
    }
    std::mt19937 random(1);
    for (int round = 0; round < 5000; ++round) {
        std::string damaged = whole;
        for (int i = 0; i < 4; ++i)
            damaged[Start.size() + random() % (damaged.size() - Start.size())] = static_cast<char>(random());
        if (const auto book = HelpBook::Parse(damaged)) {
            EXPECT_FALSE(book->PageOrContents(7).title.empty());
        }
    }
}

TEST(HelpBookTest, PicturesAreBytesInHexadecimal) {
    const HelpBook book = *HelpBook::Parse(
        "TAVRIX HELP 1\n@page 0 Contents\n![x](picture:boat)\n@picture boat\n8950\n\n4e47\n@picture Sea 2 "
        "\r\nFFff\r\n@page 5 "
        "Five\nfive\n");
    EXPECT_EQ(book.PictureAt("picture:boat"), "\x89PNG");
    EXPECT_EQ(book.PictureAt("picture:Sea 2"), "\xFF\xFF");
    EXPECT_EQ(book.PictureAt("boat"), "");
    EXPECT_EQ(book.PictureAt("picture:boa"), "");
    EXPECT_EQ(book.Find(0)->body, "![x](picture:boat)\n");
    EXPECT_EQ(book.Find(5)->body, "five\n") << "what is behind a picture is none of its bytes";
}

TEST(HelpBookTest, APictureThatIsNoneIsLeftOut) {
    const std::string start = "TAVRIX HELP 1\n@page 0 Contents\nx\n";
    const auto bytesOf = [&start](const std::string& text) {
        return std::string(HelpBook::Parse(start + "@picture p\n" + text)->PictureAt("picture:p"));
    };
    EXPECT_EQ(bytesOf("4142\n"), "AB");
    for (const char* text :
         {"414\n", "41g2\n", "4142\n4 42\n", "41-1\n", "4142\nthe end\n", "0x41\n", "  41\n"})
        EXPECT_EQ(bytesOf(text), "") << text;
    EXPECT_EQ(bytesOf("41\n@picture p\n42\n"), "A") << "the first of a name counts";
    EXPECT_EQ(HelpBook::Parse(start + "@picture \n4142\n")->PictureAt("picture:"), "");
    EXPECT_EQ(HelpBook::Parse(start + "@picture p\nzz\nlost\n")->Find(0)->body, "x\n");
}

TEST(HelpBookTest, APictureThatIsTooLargeIsLeftOut) {
    const std::string start = "TAVRIX HELP 1\n@page 0 Contents\nx\n@picture p\n";
    const std::string line(2 * HelpBook::LargestPicture, '4');
    EXPECT_EQ(HelpBook::Parse(start + line + "\n")->PictureAt("picture:p").size(), HelpBook::LargestPicture);
    EXPECT_EQ(HelpBook::Parse(start + line + "\n44\n")->PictureAt("picture:p"), "");
    EXPECT_EQ(HelpBook::Parse(start + "44\n" + line + "\n")->PictureAt("picture:p"), "");
}

}  // namespace
}  // namespace tavrix::test
