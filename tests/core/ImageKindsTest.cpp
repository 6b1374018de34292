#include "core/ImageKinds.h"

#include <gtest/gtest.h>

namespace tavrix {
namespace {

TEST(ImageKinds, ListsShowTheirKindsInTheirOrder) {
    EXPECT_EQ(PatternOf(ImagesShown::Opening),
              "*.dib;*.bmp;*.gif;*.jpg;*.jif;*.jpe;*.jpeg;*.ico;*.wmf;*.emf;*.rle;*.cur");
    EXPECT_EQ(PatternOf(ImagesShown::Slides),
              "*.dib;*.bmp;*.gif;*.jpg;*.jif;*.jpe;*.jpeg;*.ico;*.wmf;*.emf;*.rle");
    EXPECT_EQ(PatternOf(ImagesShown::All),
              "*.dib;*.bmp;*.gif;*.jpg;*.jif;*.jpe;*.jpeg;*.ico;*.wmf;*.emf;*.rle;*.pcx;*.tga;*.cur");
}

TEST(ImageKinds, AFileIsKnownByItsEndingInAnyCase) {
    ASSERT_NE(ImageKindOf("C:\\a.JpEg"), nullptr);
    EXPECT_EQ(ImageKindOf("C:\\a.JpEg")->ending, ".JPEG");
    EXPECT_FALSE(ImageKindOf("a.tga")->opens);
    EXPECT_EQ(ImageKindOf("a.tiff"), nullptr);
    EXPECT_EQ(ImageKindOf("bmp"), nullptr);
    EXPECT_EQ(ImageKindOf(""), nullptr);
}

}  // namespace
}  // namespace tavrix
