#include "editing/frame/Sizes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/ErrorOfCall.h"

namespace tavrix {
namespace {

const forms::ScreenInfo Screen;

constexpr int Twips(int pixels) {
    return pixels * 15;
}

TEST(LargerBy, ScalesTwips) {
    EXPECT_EQ(LargerBy(Twips(20), -0.25), Twips(15));
    EXPECT_EQ(LargerBy(Twips(100), -0.25), Twips(75));
    EXPECT_EQ(LargerBy(Twips(8000), 0.5), Twips(12000));
    EXPECT_EQ(LargerBy(Twips(100), 0.25), Twips(125));
    EXPECT_EQ(LargerBy(Twips(100), -0.5), Twips(50));
}

TEST(LargerBy, RoundsHalvesToEven) {
    EXPECT_EQ(LargerBy(15, -0.5), 8);    // 7.5
    EXPECT_EQ(LargerBy(45, -0.5), 22);   // 22.5
    EXPECT_EQ(LargerBy(15, 0.25), 19);   // 18.75
    EXPECT_EQ(LargerBy(90, -0.25), 68);  // 67.5
    EXPECT_EQ(LargerBy(30, -0.25), 22);  // 22.5
}

TEST(LargerBy, OverflowsBeyond32Bits) {
    EXPECT_EQ(ErrorOfCall([] { (void)LargerBy(2e9F, 0.5); }), 6);
}

TEST(SizeLimits, TooSmallTakesBothSides) {
    EXPECT_FALSE(TooSmall(Twips(15), Twips(75), Screen));
    EXPECT_FALSE(TooSmall(Twips(75), Twips(15), Screen));
    EXPECT_TRUE(TooSmall(Twips(15), Twips(15), Screen));
    EXPECT_FALSE(TooSmall(Twips(16), Twips(15), Screen));
    EXPECT_TRUE(TooSmall(Twips(16) - 1, Twips(16) - 1, Screen));
    EXPECT_FALSE(TooSmall(Twips(16), Twips(16), Screen));
}

TEST(SizeLimits, TooLargeTakesBothSides) {
    EXPECT_FALSE(TooLarge(Twips(12000), Twips(150), Screen));
    EXPECT_FALSE(TooLarge(Twips(10000), Twips(10001), Screen));
    EXPECT_FALSE(TooLarge(Twips(10000), Twips(10000), Screen));
    EXPECT_TRUE(TooLarge(Twips(10000) + 1, Twips(10000) + 1, Screen));
}

TEST(SizeLimits, EachDirectionHasItsOwnTwipsPerPixel) {
    forms::ScreenInfo screen;
    screen.twipsPerPixelX = 12;
    screen.twipsPerPixelY = 20;
    EXPECT_TRUE(TooSmall(16 * 12 - 1, 16 * 20 - 1, screen));
    EXPECT_FALSE(TooSmall(16 * 12, 16 * 20 - 1, screen));
    EXPECT_FALSE(TooSmall(16 * 12 - 1, 16 * 20, screen));
    EXPECT_TRUE(TooLarge(120001, 200001, screen));
    EXPECT_FALSE(TooLarge(120000, 200001, screen));
    EXPECT_FALSE(TooLarge(120001, 200000, screen));
}

constexpr float Wide = Twips(200);
constexpr float High = Twips(100);

RotationPlan Plan(int degrees, bool clockwise, bool preserve) {
    return PlanRotation({degrees, clockwise, preserve}, Wide, High, Screen);
}

TEST(PlanRotation, ClockwiseIsNegative) {
    EXPECT_FLOAT_EQ(Plan(45, true, false).angle, -0.78539816F);
    EXPECT_FLOAT_EQ(Plan(45, false, false).angle, 0.78539816F);
}

TEST(PlanRotation, TheQuarterTurnsAreThoseOfTheMenu) {
    EXPECT_EQ(Plan(90, false, false).angle, static_cast<float>(3.14159265359 / 2));
    EXPECT_EQ(Plan(90, true, false).angle, -static_cast<float>(3.14159265359 / 2));
    EXPECT_EQ(Plan(180, false, false).angle, 3.1415927F);
    EXPECT_EQ(Plan(180, true, false).angle, -3.1415927F);
}

TEST(PlanRotation, AQuarterSwapsTheSidesWithoutAMargin) {
    for (const bool clockwise : {false, true}) {
        EXPECT_EQ(Plan(90, clockwise, false).width, High);
        EXPECT_EQ(Plan(90, clockwise, false).height, Wide);
        EXPECT_EQ(Plan(90, clockwise, true).width, Wide);
        EXPECT_EQ(Plan(90, clockwise, true).height, High);
    }
}

TEST(PlanRotation, HalfATurnKeepsTheSize) {
    for (const bool preserve : {false, true}) {
        EXPECT_EQ(Plan(180, true, preserve).width, Wide);
        EXPECT_EQ(Plan(180, true, preserve).height, High);
    }
}

TEST(PlanRotation, TheBoxHoldsTheCornersAndAMarginOfTwoPixels) {
    for (const bool clockwise : {false, true}) {
        const RotationPlan plan = Plan(30, clockwise, false);
        EXPECT_NEAR(plan.width, 1500 * 0.5 + 3000 * 0.8660254 + 30, 0.01);
        EXPECT_NEAR(plan.height, 1500 * 0.8660254 + 3000 * 0.5 + 30, 0.01);
    }
}

TEST(PlanRotation, BeyondAQuarterTheBoxIsThatOfTheRestWithSwappedSides) {
    const RotationPlan at135 = Plan(135, true, false);
    EXPECT_NEAR(at135.width, (3000 + 1500) * std::sqrt(0.5) + 30, 0.01);
    EXPECT_NEAR(at135.height, (3000 + 1500) * std::sqrt(0.5) + 30, 0.01);
    EXPECT_FLOAT_EQ(at135.angle, -2.3561945F);

    const RotationPlan at120 = Plan(120, false, false);
    EXPECT_NEAR(at120.width, 3000 * 0.5 + 1500 * 0.8660254 + 30, 0.01);
    EXPECT_NEAR(at120.height, 3000 * 0.8660254 + 1500 * 0.5 + 30, 0.01);
    EXPECT_FLOAT_EQ(at120.angle, 2.0943951F);
}

TEST(PlanRotation, KeepingTheSizeSwapsTheSidesBeyondAQuarter) {
    EXPECT_EQ(Plan(45, true, true).width, Wide);
    EXPECT_EQ(Plan(45, true, true).height, High);
    EXPECT_EQ(Plan(91, false, true).width, High);
    EXPECT_EQ(Plan(179, false, true).height, Wide);
    EXPECT_FLOAT_EQ(Plan(179, false, true).angle, 3.1241394F);
}

}  // namespace
}  // namespace tavrix
