#include "platform/services/DrivePath.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Text.h"
#include "support/ErrorOfCall.h"

namespace tavrix {
namespace {

TEST(DrivePath, IsTakenApart) {
    EXPECT_EQ(PartsOf("c:\\a\\b.bmp").Text(), "C:\\a\\b.bmp");
    EXPECT_EQ(PartsOf("C:\\").Text(), "C:\\");
    EXPECT_EQ(PartsOf("C:/a//.\\b\\").Text(), "C:\\a\\b");
    EXPECT_EQ(PartsOf("C:\\a\\..\\..\\b").Text(), "C:\\b");
    for (const char* path :
         {"", "C:", "a.bmp", "1:\\", "C:a", "C:\\a:b", "C:\\a\"b", "C:\\*.bmp", "C:\\a?", "C:\\a\n"}) {
        EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(PartsOf(path)); }), 52) << path;
    }
}

TEST(DrivePath, HasANormalForm) {
    EXPECT_EQ(NormalPath("C:\\a\\b.bmp"), "C:\\a\\b.bmp");
    EXPECT_EQ(NormalPath("C:/a/b.bmp"), "C:\\a\\b.bmp");
    EXPECT_EQ(NormalPath("c:\\a\\\\x\\..\\.\\b.bmp"), "c:\\a\\b.bmp");
    EXPECT_EQ(NormalPath("C:\\..\\..\\b.bmp"), "C:\\b.bmp");
    EXPECT_EQ(NormalPath("C:/a/"), "C:\\a\\");
    EXPECT_EQ(NormalPath("C:/"), "C:\\");
    EXPECT_EQ(NormalPath("a/../b.bmp"), "a\\..\\b.bmp");
    EXPECT_EQ(NormalPath("/b.bmp"), "\\b.bmp");
    EXPECT_EQ(NormalPath("C:a/b"), "C:a\\b");
    EXPECT_EQ(NormalPath("C:/a/*/../b?"), "C:\\a\\*\\..\\b?");
    EXPECT_EQ(NormalPath(""), "");
    for (const char* path : {"C:/a//b/../c", "c:\\", "//machine/x", "C:/a:b/"})
        EXPECT_EQ(NormalPath(NormalPath(path)), NormalPath(path)) << path;
}

TEST(DrivePath, IsTakenFromTheCurrentFolders) {
    CurrentFolders current;
    EXPECT_EQ(current.Folder(), "C:\\");
    current.SetFolder(PartsOf("C:\\Pictures\\Old"));
    current.SetFolder(PartsOf("D:\\Shows"));
    EXPECT_EQ(current.Folder(), "C:\\Pictures\\Old");
    EXPECT_EQ(current.Absolute("a.bmp").Text(), "C:\\Pictures\\Old\\a.bmp");
    EXPECT_EQ(current.Absolute("..\\a.bmp").Text(), "C:\\Pictures\\a.bmp");
    EXPECT_EQ(current.Absolute("\\a.bmp").Text(), "C:\\a.bmp");
    EXPECT_EQ(current.Absolute("d:a.bmp").Text(), "D:\\Shows\\a.bmp");
    EXPECT_EQ(current.Absolute("D:").Text(), "D:\\Shows");
    EXPECT_EQ(current.Absolute("E:x").Text(), "E:\\x");
    EXPECT_EQ(current.Absolute("D:\\x").Text(), "D:\\x");
    current.SetDrive('D');
    EXPECT_EQ(current.Folder(), "D:\\Shows");
    EXPECT_EQ(current.Absolute("x").Text(), "D:\\Shows\\x");
    for (const char* path : {"", "\\\\machine\\share", "1:x", "::"}) {
        EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(current.Absolute(path)); }), 52) << path;
    }
}

TEST(DrivePath, ListsWithoutRegardToCase) {
    EXPECT_TRUE(ListsBefore("a", "B"));
    EXPECT_TRUE(ListsBefore("A", "a"));
    EXPECT_FALSE(ListsBefore("a", "A"));
    EXPECT_FALSE(ListsBefore("a", "a"));
}

TEST(DrivePath, ListsPlainAndOtherNamesInOneOrder) {
    std::vector<std::string> names;
    for (const std::string a : {"", "a", "A", "_", "\u00e4", "\u00c4", "z", "Z", "b"}) {
        for (const std::string b : {"", "1", "B", "b", "\u00e4", "~"})
            names.push_back(a + b);
    }
    const auto slow = [](const std::string& a, const std::string& b) {
        const std::string upperA = UpperCase(a);
        const std::string upperB = UpperCase(b);
        return upperA != upperB ? upperA < upperB : a < b;
    };
    for (const std::string& a : names) {
        for (const std::string& b : names)
            EXPECT_EQ(ListsBefore(a, b), slow(a, b)) << a << ' ' << b;
    }
}

TEST(DrivePath, MatchesPatterns) {
    EXPECT_TRUE(MatchesPattern("a.bmp", "*.*"));
    EXPECT_TRUE(MatchesPattern("README", "*.*"));
    EXPECT_TRUE(MatchesPattern("a.bmp", "*.BMP"));
    EXPECT_FALSE(MatchesPattern("a.bmpx", "*.bmp"));
    EXPECT_TRUE(MatchesPattern("a.b.bmp", "a*.bmp"));
    EXPECT_TRUE(MatchesPattern("abc", "a?c"));
    EXPECT_TRUE(MatchesPattern("a\u20acc", "a?c"));
    EXPECT_FALSE(MatchesPattern("ac", "a?c"));
    EXPECT_TRUE(MatchesPattern("abcabc.gif", "*abc.gif"));
    EXPECT_TRUE(MatchesPattern("name", "name.*"));
    EXPECT_FALSE(MatchesPattern("name", "name.?"));
    EXPECT_TRUE(MatchesPattern("\u00c4.gif", "\u00e4.GIF"));
    EXPECT_TRUE(MatchesPattern("x", "*"));
    EXPECT_FALSE(MatchesPattern("x", ""));
    EXPECT_FALSE(MatchesPattern("abb", "*c"));
    EXPECT_FALSE(MatchesPattern(std::string(200, 'a'), "*a*a*a*a*a*a*a*b"));
}

TEST(DrivePath, SplitsAPatternFromItsFolder) {
    EXPECT_EQ(SplitPattern("A:\\*.*").folder, "A:\\");
    EXPECT_EQ(SplitPattern("A:\\*.*").pattern, "*.*");
    EXPECT_EQ(SplitPattern("A:*.bmp").folder, "A:");
    EXPECT_EQ(SplitPattern("*.bmp").folder, "");
    EXPECT_EQ(SplitPattern("C:\\a\\").pattern, "");
}

}  // namespace
}  // namespace tavrix
