#include "shows/stage/StageFit.h"

#include <gtest/gtest.h>

#include "core/Random.h"

namespace tavrix {
namespace {

constexpr float Twips = 15;
constexpr Extent Stage{800 * Twips, 600 * Twips};
constexpr Extent Pixel{Twips, Twips};

FittedImage Shrunk(float width, float height) {
    return ShrinkToStage({{width, height}, false}, Stage);
}

TEST(StageFitTest, AWideImageIsShrunkByItsWidth) {
    const FittedImage fitted = Shrunk(4000 * Twips, 100 * Twips);
    EXPECT_EQ(fitted, (FittedImage{{12000, 300}, true}));
}

TEST(StageFitTest, ATallImageIsShrunkByItsHeight) {
    EXPECT_EQ(Shrunk(100 * Twips, 1200 * Twips), (FittedImage{{750, 9000}, true}));
}

TEST(StageFitTest, WhatIsTooHighAfterTheFirstPassTakesTheSecond) {
    // 1000 x 1500 pixels: the width gives 800 x 1200, the height of that 400 x 600.
    EXPECT_EQ(Shrunk(1000 * Twips, 1500 * Twips), (FittedImage{{6000, 9000}, true}));
}

TEST(StageFitTest, AnImageThatFitsStaysAsItIs) {
    EXPECT_EQ(Shrunk(800 * Twips, 600 * Twips), (FittedImage{Stage, false}));
    EXPECT_EQ(Shrunk(1, 1), (FittedImage{{1, 1}, false}));
}

TEST(StageFitTest, SizesThatFollowAreRoundedHalvesToTheEvenNeighbour) {
    // 24000 x 5: half of 5 is 2.5, and of 7 it is 3.5.
    EXPECT_EQ(Shrunk(24000, 5).size.height, 2);
    EXPECT_EQ(Shrunk(24000, 7).size.height, 4);
}

TEST(StageFitTest, ImagesBelow32PixelsAreNotEnlarged) {
    EXPECT_FALSE(MayBeEnlarged({16 * Twips, 16 * Twips}, Stage, Pixel));
    EXPECT_FALSE(MayBeEnlarged({31 * Twips, 100 * Twips}, Stage, Pixel));
    EXPECT_FALSE(MayBeEnlarged({100 * Twips, 31 * Twips}, Stage, Pixel));
    EXPECT_TRUE(MayBeEnlarged({32 * Twips, 32 * Twips}, Stage, Pixel));
}

TEST(StageFitTest, ImagesThatMeetTheStageAreNotEnlarged) {
    EXPECT_FALSE(MayBeEnlarged({800 * Twips, 100 * Twips}, Stage, Pixel));
    EXPECT_FALSE(MayBeEnlarged({100 * Twips, 600 * Twips}, Stage, Pixel));
    EXPECT_TRUE(MayBeEnlarged({799 * Twips, 599 * Twips}, Stage, Pixel));
}

TEST(StageFitTest, AnImageIsEnlargedUntilItMeetsTheStage) {
    EXPECT_EQ(EnlargeToStage({32 * Twips, 32 * Twips}, Stage), (FittedImage{{9000, 9000}, true}));
    EXPECT_EQ(EnlargeToStage({400 * Twips, 100 * Twips}, Stage), (FittedImage{{12000, 3000}, true}));
    EXPECT_EQ(EnlargeToStage({400 * Twips, 300 * Twips}, Stage), (FittedImage{Stage, true}));
}

TEST(StageFitTest, TheFirstImageIsCentredByWholeNumbers) {
    EXPECT_EQ(CentredFirst(12000, 299), 5850);     // half of 11701, without the half
    EXPECT_EQ(CentredFirst(12000, 299.5F), 5850);  // 11700.5 goes to 11700
    EXPECT_EQ(CentredFirst(12000, 12003), -1);     // towards zero
    EXPECT_EQ(Centred(12000, 299), 5850.5F);
    EXPECT_EQ(Centred(12000, 12003), -1.5F);
}

TEST(RandomTest, TheSequenceIsTheSameInEachProcess) {
    Random random;
    EXPECT_FLOAT_EQ(random.Next(), 0.7055475F);
    EXPECT_FLOAT_EQ(random.Next(), 0.533424F);
    EXPECT_FLOAT_EQ(random.Next(), 0.5795186F);
    EXPECT_FLOAT_EQ(random.Next(), 0.2895625F);
}

TEST(RandomTest, NumbersStayBelowOne) {
    Random random;
    for (int i = 0; i < 100000; ++i) {
        const float r = random.Next();
        ASSERT_GE(r, 0.0F);
        ASSERT_LT(r, 1.0F);
    }
}

}  // namespace
}  // namespace tavrix
