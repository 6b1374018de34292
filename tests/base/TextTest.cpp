#include "base/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrix {
namespace {

TEST(Text, CountsCodePoints) {
    EXPECT_EQ(CharacterCount(""), 0U);
    EXPECT_EQ(CharacterCount("abc"), 3U);
    EXPECT_EQ(CharacterCount("\u00e4\u20ac\U0001F600"), 3U);
}

TEST(Text, CountsEachInvalidByteAsOneCharacter) {
    EXPECT_EQ(CharacterCount("\xff"
                             "a\x80"),
              3U);
    EXPECT_EQ(CharacterCount("\xc3"), 1U);              // cut short
    EXPECT_EQ(CharacterCount("\xe2\x82"), 2U);          // cut short
    EXPECT_EQ(CharacterCount("\xc0\xaf"), 2U);          // overlong
    EXPECT_EQ(CharacterCount("\xe0\x80\xaf"), 3U);      // overlong
    EXPECT_EQ(CharacterCount("\xed\xa0\x80"), 3U);      // surrogate
    EXPECT_EQ(CharacterCount("\xf4\x90\x80\x80"), 4U);  // beyond the last code point
    EXPECT_EQ(CharacterCount("\xf4\x8f\xbf\xbf"), 1U);  // the last code point
}

TEST(Text, CutsBetweenCharacters) {
    const std::string text = "a\u00e4\u20acz";
    EXPECT_EQ(Left(text, 2), "a\u00e4");
    EXPECT_EQ(Left(text, 0), "");
    EXPECT_EQ(Left(text, 9), text);
    EXPECT_EQ(Right(text, 2), "\u20acz");
    EXPECT_EQ(Right(text, 0), "");
    EXPECT_EQ(Right(text, 9), text);
    EXPECT_EQ(From(text, 2), "\u20acz");
    EXPECT_EQ(From(text, 0), text);
    EXPECT_EQ(From(text, 4), "");
    EXPECT_EQ(From(text, 5), "");
    EXPECT_EQ(Right("\xff\xfe", 1), "\xfe");
}

TEST(Text, TrimsBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\t a \n"), "\t a \n");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(Text, UpperCasesWhateverTheLocale) {
    EXPECT_EQ(UpperCase("Tavrix i"), "TAVRIX I");
    EXPECT_EQ(UpperCase("\u00e4\u00f6\u00fc\u00ff\u00f7"), "\u00c4\u00d6\u00dc\u0178\u00f7");
    EXPECT_EQ(UpperCase("\u0101\u0161\u017e\u0151"), "\u0100\u0160\u017d\u0150");
    EXPECT_EQ(UpperCase("\u03b1\u03c9\u03ac\u03c2"), "\u0391\u03a9\u0386\u03a3");
    EXPECT_EQ(UpperCase("\u0430\u044f\u0451\u045f"), "\u0410\u042f\u0401\u040f");
    EXPECT_EQ(UpperCase("\U00010428"), "\U00010400");
    EXPECT_EQ(UpperCase("\u00df"), "\u00df");  // one character for one
    EXPECT_EQ(UpperCase("\u0131\u017f"), "\u0131\u017f");
    EXPECT_EQ(UpperCase("a\xff"
                        "b"),
              "A\xff"
              "B");
}

TEST(Text, UpperCaseStandsStill) {
    for (unsigned code = 0x80; code < 0x3000; ++code) {
        std::string text;
        if (code < 0x800) {
            text.push_back(static_cast<char>(0xC0U | code >> 6U));
        } else {
            text.push_back(static_cast<char>(0xE0U | code >> 12U));
            text.push_back(static_cast<char>(0x80U | (code >> 6U & 0x3FU)));
        }
        text.push_back(static_cast<char>(0x80U | (code & 0x3FU)));
        ASSERT_EQ(CharacterCount(UpperCase(text)), 1U) << code;
        ASSERT_EQ(UpperCase(UpperCase(text)), UpperCase(text)) << code;
    }
}

TEST(Text, ComparesIgnoringCase) {
    EXPECT_TRUE(EqualIgnoringCase("C:\\A.bmp", "c:\\a.BMP"));
    EXPECT_TRUE(EqualIgnoringCase("\u00e4", "\u00c4"));
    EXPECT_FALSE(EqualIgnoringCase("a", "ab"));
    EXPECT_FALSE(EqualIgnoringCase("[", "{"));
    EXPECT_TRUE(EndsInIgnoringCase("x.GiF", ".gif"));
    EXPECT_TRUE(EndsInIgnoringCase(".gif", ".GIF"));
    EXPECT_FALSE(EndsInIgnoringCase("gif", ".gif"));
    EXPECT_TRUE(EndsInIgnoringCase("a.\u00c4", ".\u00e4"));
    EXPECT_TRUE(EndsInIgnoringCase("a", ""));
    EXPECT_EQ(WithUpperFirst("c:\\x"), "C:\\x");
    EXPECT_EQ(WithUpperFirst("\u00e4b"), "\u00c4b");
    EXPECT_EQ(WithUpperFirst(""), "");
}

TEST(Text, TakesPathsApart) {
    EXPECT_EQ(WithBackslash("C:\\a"), "C:\\a\\");
    EXPECT_EQ(WithBackslash("C:\\"), "C:\\");
    EXPECT_EQ(FolderOf("C:\\a\\b.bmp"), "C:\\a\\");
    EXPECT_EQ(FolderOf("b.bmp"), "");
    EXPECT_EQ(FileNameOf("C:\\a\\b.bmp"), "b.bmp");
    EXPECT_EQ(FileNameOf("C:\\a\\"), "");
    EXPECT_EQ(FileNameOf("b.bmp"), "b.bmp");
}

TEST(Text, TheNamePartHoldsNoSeparatorOfAnyKind) {
    for (const char* path : {"a\\b\\c/../../../.bashrc", "C:/.bashrc", "x\\y/.bashrc", "/.bashrc",
                             "C:.bashrc", "a/b:.bashrc", "a\\b/c:\\.bashrc"}) {
        EXPECT_EQ(FileNameOf(path), ".bashrc") << path;
        EXPECT_EQ(FolderOf(path) + FileNameOf(path), path);
    }
    EXPECT_EQ(FileNameOf("a\\b/"), "");
    EXPECT_EQ(FolderOf("a/b.bmp"), "a/");
}

TEST(Text, ReadsTextFilesInEitherEncoding) {
    EXPECT_EQ(DecodeTextFile("plain"), "plain");
    EXPECT_EQ(DecodeTextFile("caf\xc3\xa9"), "caf\u00e9");
    EXPECT_EQ(DecodeTextFile("caf\xe9"), "caf\u00e9");
    EXPECT_EQ(DecodeTextFile("\x80\x92\x99\x9f"), "\u20ac\u2019\u2122\u0178");
    EXPECT_EQ(DecodeTextFile("\x81\x8d\x8f\x90\x9d"), "\u0081\u008d\u008f\u0090\u009d");
}

TEST(Text, WritesWindows1252WhereItComesBack) {
    EXPECT_EQ(EncodeTextFile("caf\u00e9 \u20ac"), "caf\xe9 \x80");
    EXPECT_EQ(EncodeTextFile("\u0416"), "\u0416");  // not in the code page
    EXPECT_EQ(EncodeTextFile("\u00c3\u00a9"),
              "\u00c3\u00a9");  // its two bytes would read as an e with an accent
    for (unsigned byte = 0; byte < 256; ++byte) {
        const std::string bytes = {'x', static_cast<char>(byte), 'y'};
        EXPECT_EQ(EncodeTextFile(DecodeTextFile(bytes)), bytes) << byte;
    }
}

TEST(Text, WhatIsWrittenReadsBack) {
    for (const std::string text : {"", "a", "\u00e4\u00f6", "\u00c3\u00a4\u00e4", "\u0434\u00e4", "\u0081",
                                   "\u00e2\u201a\u00ac", "\U0001F600\u00ff"}) {
        EXPECT_EQ(DecodeTextFile(EncodeTextFile(text)), text);
    }
}

TEST(Text, ParsesIntegers) {
    EXPECT_EQ(ParseLong("42"), 42);
    EXPECT_EQ(ParseLong("  -7 "), -7);
    EXPECT_EQ(ParseLong("+7"), 7);
    EXPECT_EQ(ParseLong("0"), 0);
    EXPECT_EQ(ParseLong("007"), 7);
    EXPECT_EQ(ParseLong("2147483647"), 2147483647);
    EXPECT_EQ(ParseLong("-2147483648"), -2147483647 - 1);
    EXPECT_EQ(ParseLong("2147483648"), std::nullopt);
    EXPECT_EQ(ParseLong("99999999999999999999999999"), std::nullopt);
    for (const char* text :
         {"", " ", "-", "+", ".", "-.", "abc", "1a", "1 2", "1.2.3", "--1", "0x10", "1\t", "\u0661"}) {
        EXPECT_EQ(ParseLong(text), std::nullopt) << text;
    }
}

TEST(Text, ParsesDecimalsToTheEvenNeighbour) {
    EXPECT_EQ(ParseLong("2.5"), 2);
    EXPECT_EQ(ParseLong("3.5"), 4);
    EXPECT_EQ(ParseLong("-2.5"), -2);
    EXPECT_EQ(ParseLong("-3.5"), -4);
    EXPECT_EQ(ParseLong("2.50001"), 3);
    EXPECT_EQ(ParseLong("2.49999"), 2);
    EXPECT_EQ(ParseLong(".5"), 0);
    EXPECT_EQ(ParseLong(".51"), 1);
    EXPECT_EQ(ParseLong("5."), 5);
    EXPECT_EQ(ParseLong("9510.0"), 9510);
    EXPECT_EQ(ParseLong("2147483647.4"), 2147483647);
    EXPECT_EQ(ParseLong("2147483647.5"), std::nullopt);
}

TEST(Text, ParsesIntegersOf16Bits) {
    EXPECT_EQ(ParseInteger(" 32767 "), 32767);
    EXPECT_EQ(ParseInteger("-32768"), -32768);
    EXPECT_EQ(ParseInteger("12.5"), 12);
    EXPECT_EQ(ParseInteger("32767.4"), 32767);
    for (const char* text : {"", "32768", "-32769", "40000", "99999999999", "32767.5", "12a", "-"})
        EXPECT_EQ(ParseInteger(text), std::nullopt) << text;
}

TEST(Text, ParsesNumbersWithTheirDecimals) {
    EXPECT_EQ(ParseNumber("12.75"), 12.75);
    EXPECT_EQ(ParseNumber(" -0.5 "), -0.5);
    EXPECT_EQ(ParseNumber("+.5"), 0.5);
    EXPECT_EQ(ParseNumber("5."), 5.0);
    EXPECT_EQ(ParseNumber("3000000000"), 3e9);
    EXPECT_EQ(ParseNumber(std::string(400, '9')), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ParseNumber("-1" + std::string(400, '0')), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(ParseNumber("." + std::string(400, '0') + "1"), 0.0);
    for (const char* text : {"", " ", ".", "-", "x", "1e3", "1,000", "0x10", "1 2", "inf", "nan", "--1"})
        EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
}

}  // namespace
}  // namespace tavrix
