#include "core/SlideCountText.h"

#include <gtest/gtest.h>

namespace tavrix::test {
namespace {

TEST(SlideCountTextTest, CountsAreToldInWords) {
    const NumberFormat format;
    EXPECT_EQ(SlideCountText(0, format), "Zero slides (images) total...");
    EXPECT_EQ(SlideCountText(1, format), "One slide (image) total...");
    EXPECT_EQ(SlideCountText(2, format), "2 slides (images) total...");
    EXPECT_EQ(SlideCountText(30'001, format), "30,001 slides (images) total...");
}

}  // namespace
}  // namespace tavrix::test
