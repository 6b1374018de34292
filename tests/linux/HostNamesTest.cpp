#include "backends/linux/HostNames.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

#include "base/Text.h"

namespace tavrix {
namespace {

bool StandsInDrivePath(const std::string& name) {
    if (name.starts_with(' ') || name.ends_with(' ') || name.empty()) return false;
    for (const char c : name) {
        if (static_cast<unsigned char>(c) < 0x20U || std::string(":\\\"*?/").find(c) != std::string::npos)
            return false;
    }
    // All valid text: each character is either ASCII or longer than a byte.
    for (std::string rest = name; !rest.empty(); rest = From(rest, 1)) {
        if (Left(rest, 1).size() == 1 && static_cast<unsigned char>(rest[0]) >= 0x80U) return false;
    }
    return true;
}

TEST(HostNames, OrdinaryNamesStayAsTheyAre) {
    for (const std::string name :
         {"a.bmp", "Sommer 2001.jpg", "\u00e4\u6f22.gif", ".hidden", "a'b;c,d=e[f]", "\u00a0"}) {
        EXPECT_EQ(ToDriveName(name), name);
        EXPECT_EQ(FromDriveName(name), name);
    }
}

TEST(HostNames, OtherCharactersShowAsLookAlikes) {
    EXPECT_EQ(ToDriveName("10:20.png"), "10\uA78920.png");
    EXPECT_EQ(ToDriveName("a\\b"), "a\u29F5b");
    EXPECT_EQ(ToDriveName(" a b "), "\u2007a b\u2007");
    EXPECT_EQ(ToDriveName("a\nb"), "a\u240Ab");
    EXPECT_EQ(ToDriveName("a\xff"), "a\uF7FF");
    EXPECT_EQ(ToDriveName("10\uA78920"), "10\u2426\uA78920");
    EXPECT_EQ(FromDriveName("10\uA78920.png"), "10:20.png");
}

TEST(HostNames, EachByteComesBack) {
    for (int first = 1; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            const std::string name = {static_cast<char>(first), static_cast<char>(second)};
            if (name.find('/') != std::string::npos) continue;
            const std::string shown = ToDriveName(name);
            ASSERT_TRUE(StandsInDrivePath(shown)) << first << ' ' << second;
            ASSERT_EQ(FromDriveName(shown), name) << first << ' ' << second;
        }
    }
}

TEST(HostNames, DifferentNamesLookDifferent) {
    // The pieces that could run into each other: look-alikes, what they stand for, the escape, halves of characters.
    const std::vector<std::string> pieces{
        ":",      "\uA789", "\\",     "\u29F5", "\"",     "\u02BA", " ",      "\u2007", "\n",
        "\u240A", "\x7f",   "\u2421", "\u2400", "\u2426", "\xff",   "\uF7FF", "\x80",   "\uF780",
        "\xEA",   "\x9E",   "\x89",   "a",      "*",      "\u2217", "?",      "\uFE56"};
    std::mt19937 random(1);
    std::map<std::string, std::string> shownNames;
    for (int i = 0; i < 50'000; ++i) {
        std::string name;
        const auto length = 1 + random() % 6;
        for (unsigned long k = 0; k < length; ++k)
            name += pieces[random() % pieces.size()];
        const std::string shown = ToDriveName(name);
        ASSERT_TRUE(StandsInDrivePath(shown)) << testing::PrintToString(name);
        ASSERT_EQ(FromDriveName(shown), name) << testing::PrintToString(name);
        const auto [other, isNew] = shownNames.emplace(shown, name);
        ASSERT_TRUE(isNew || other->second == name);
    }
}

}  // namespace
}  // namespace tavrix
