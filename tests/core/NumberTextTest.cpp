#include "core/NumberText.h"

#include <gtest/gtest.h>

#include <limits>

namespace tavrix::test {
namespace {

TEST(NumberTextTest, DigitsAreGroupedByThree) {
    const NumberFormat format;
    for (const auto& [number, text] : std::initializer_list<std::pair<std::int64_t, const char*>>{
             {1, "1"},
             {12, "12"},
             {999, "999"},
             {1000, "1,000"},
             {12345, "12,345"},
             {123456, "123,456"},
             {1234567, "1,234,567"},
             {-1, "-1"},
             {-999, "-999"},
             {-1000, "-1,000"},
             {4294967296, "4,294,967,296"},
             {std::numeric_limits<std::int64_t>::max(), "9,223,372,036,854,775,807"},
             {std::numeric_limits<std::int64_t>::min(), "-9,223,372,036,854,775,808"}}) {
        EXPECT_EQ(GroupedNumber(number, format), text);
        EXPECT_EQ(GroupedNumberOrEmpty(number, format), text);
    }
}

TEST(NumberTextTest, NothingIsAZeroOrAnEmptyText) {
    EXPECT_EQ(GroupedNumber(0, {}), "0");
    EXPECT_EQ(GroupedNumberOrEmpty(0, {}), "");
}

TEST(NumberTextTest, TheLocaleSaysWhatStandsBetweenTheGroups) {
    EXPECT_EQ(GroupedNumber(1234567, {.thousands = "."}), "1.234.567");
    EXPECT_EQ(GroupedNumber(1234567, {.thousands = "\u202F"}), "1\u202F234\u202F567");
    EXPECT_EQ(GroupedNumber(1234567, {.thousands = ""}), "1234567");
}

}  // namespace
}  // namespace tavrix::test
