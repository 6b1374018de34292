#include "backends/headless/MemoryClipboard.h"

#include <gtest/gtest.h>

#include "backends/headless/HeadlessServices.h"
#include "support/ErrorOfCall.h"

namespace tavrix::test {
namespace {

using headless::HeadlessServices;
using headless::Service;

Picture Small(Pixel pixel) {
    Surface surface(2, 1);
    surface.Fill(pixel);
    return PictureOf(std::move(surface));
}

class MemoryClipboardTest : public ::testing::Test {
  protected:
    HeadlessServices platform;
    Clipboard& clipboard = platform.services.clipboard;
};

TEST_F(MemoryClipboardTest, GivesTheVeryPixelsThatWereSet) {
    EXPECT_FALSE(HoldsPicture(clipboard));
    const Picture picture = Small(OpaquePixel(1, 2, 3));
    clipboard.Set(picture);
    EXPECT_TRUE(HoldsPicture(clipboard));
    EXPECT_TRUE(clipboard.Has(ClipboardFormat::Bitmap));
    EXPECT_TRUE(clipboard.Has(ClipboardFormat::DeviceIndependentBitmap));
    EXPECT_FALSE(clipboard.Has(ClipboardFormat::Metafile));
    EXPECT_EQ(clipboard.Get(), picture);
    clipboard.Clear();
    EXPECT_FALSE(HoldsPicture(clipboard));
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(clipboard.Get()); }), 481);
}

TEST_F(MemoryClipboardTest, WhatIsTransparentLiesOverWhite) {
    Picture picture = Small(0x80000000U);
    picture.transparent = true;
    platform.clipboard.picture = picture;
    platform.clipboard.formats = {ClipboardFormat::Metafile};
    EXPECT_TRUE(HoldsPicture(clipboard));
    EXPECT_EQ(clipboard.Get().pixels->Whole().Row(0)[1], OpaquePixel(127, 127, 127));
    clipboard.Set(picture);
    EXPECT_EQ(platform.clipboard.picture.pixels->Whole().Row(0)[0], OpaquePixel(127, 127, 127));
    EXPECT_FALSE(platform.clipboard.picture.transparent);
}

TEST_F(MemoryClipboardTest, FailsAsPlanned) {
    clipboard.Set(Small(OpaquePixel(1, 2, 3)));
    platform.faults.FailAlways(Service::Clipboard, "Get", ErrorNumber::CantOpenClipboard);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(clipboard.Get()); }), 521);
    platform.faults.FailNth(Service::Clipboard, 1, ErrorNumber::CantOpenClipboard);
    EXPECT_EQ(ErrorOfCall([&] { clipboard.Clear(); }), 521);
    EXPECT_TRUE(HoldsPicture(clipboard)) << "it stays as it was";
    platform.faults.Clear();
    EXPECT_EQ(ErrorOfCall([&] { clipboard.Set({}); }), 481);
    EXPECT_EQ(DescriptionOf(ErrorNumber::CantOpenClipboard), "Can't open Clipboard");
}

TEST_F(MemoryClipboardTest, WithoutAPictureItHoldsWhatNobodyCanDecode) {
    platform.clipboard.formats = {ClipboardFormat::Bitmap};
    EXPECT_TRUE(HoldsPicture(clipboard));
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(clipboard.Get()); }), 481);
}

}  // namespace
}  // namespace tavrix::test
