#include "backends/shared/NameList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

TEST(PatternList, MatchesAnyOfItsPatterns) {
    const PatternList images(" *.bmp ;*.JPG;; a?.txt");
    EXPECT_TRUE(images.Matches("X.BMP"));
    EXPECT_TRUE(images.Matches("x.y.jpg"));
    EXPECT_TRUE(images.Matches("ab.txt"));
    EXPECT_FALSE(images.Matches("a.txt"));
    EXPECT_FALSE(images.Matches("bmp"));
    EXPECT_FALSE(images.Matches("x.bmp.txt"));
}

TEST(PatternList, WithoutAPatternMatchesAll) {
    for (const char* none : {"", " ", ";", " ; ;"}) {
        EXPECT_TRUE(PatternList(none).Matches("README")) << none;
        EXPECT_TRUE(PatternList(none).Matches("a.bmp")) << none;
    }
}

TEST(SortAsListed, IsTheOrderOfListsBefore) {
    std::mt19937 random(7);
    const std::vector<std::string> letters{"a", "A",      "b",      "B",    "_", ".",
                                           "1", "\u00e4", "\u00c4", "\xff", "z", "Z"};
    std::vector<std::string> names;
    for (int i = 0; i < 2000; ++i) {
        std::string name;
        for (auto length = random() % 6; length > 0; --length)
            name += letters[random() % letters.size()];
        names.push_back(name);
    }
    std::vector<std::string> expected = names;
    std::ranges::sort(expected, ListsBefore);
    SortAsListed(names);
    EXPECT_EQ(names, expected);
}

TEST(SortAsListed, LeavesNothingAndOneAlone) {
    std::vector<std::string> names;
    SortAsListed(names);
    EXPECT_TRUE(names.empty());
    names = {"b"};
    SortAsListed(names);
    EXPECT_EQ(names, (std::vector<std::string>{"b"}));
}

}  // namespace
}  // namespace tavrix
