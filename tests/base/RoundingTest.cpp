#include "base/Rounding.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/ErrorOfCall.h"

namespace tavrix {
namespace {

TEST(Rounding, TakesHalvesToTheEvenNeighbour) {
    EXPECT_EQ(RoundToLong(0.5), 0);
    EXPECT_EQ(RoundToLong(1.5), 2);
    EXPECT_EQ(RoundToLong(2.5), 2);
    EXPECT_EQ(RoundToLong(-0.5), 0);
    EXPECT_EQ(RoundToLong(-1.5), -2);
    EXPECT_EQ(RoundToLong(-2.5), -2);
    EXPECT_EQ(ToInteger16(4.5), 4);
    EXPECT_EQ(ToInteger16(-5.5), -6);
}

TEST(Rounding, TakesTheNearerNeighbour) {
    EXPECT_EQ(RoundToLong(2.4999), 2);
    EXPECT_EQ(RoundToLong(2.5001), 3);
    EXPECT_EQ(RoundToLong(-2.4999), -2);
    EXPECT_EQ(RoundToLong(-2.5001), -3);
}

TEST(Rounding, OverflowsOutsideItsRange) {
    EXPECT_EQ(RoundToLong(2147483647.0), 2147483647);
    EXPECT_EQ(RoundToLong(2147483647.4), 2147483647);
    EXPECT_EQ(RoundToLong(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ErrorOfCall([] { (void)RoundToLong(2147483647.5); }), 6);
    EXPECT_EQ(ErrorOfCall([] { (void)RoundToLong(-2147483649.0); }), 6);
    EXPECT_EQ(ToInteger16(32767.49), 32767);
    EXPECT_EQ(ErrorOfCall([] { (void)ToInteger16(32767.5); }), 6);
    EXPECT_EQ(ToInteger16(-32768.5), -32768);
    EXPECT_EQ(ErrorOfCall([] { (void)ToInteger16(-32769.0); }), 6);
    EXPECT_EQ(ErrorOfCall([] { (void)RoundToLong(std::numeric_limits<double>::quiet_NaN()); }), 6);
    EXPECT_EQ(ErrorOfCall([] { (void)RoundToLong(std::numeric_limits<double>::infinity()); }), 6);
}

}  // namespace
}  // namespace tavrix
