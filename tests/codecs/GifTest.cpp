#include <gtest/gtest.h>

#include "codecs/Decoding.h"
#include "codecs/GifFile.h"
#include "imaging/codecs/GifAnimation.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;
const Pixels Table{BlackPixel, Red, Green, Blue};

DecodedPicture DecodeOne(GifImage image, int width = 2, int height = 2) {
    return Decode(
        GifFile{.width = width, .height = height, .table = Table, .images = {std::move(image)}}.Make());
}

void ExpectComplete(const DecodedPicture& decoded, const Pixels& expected) {
    ASSERT_FALSE(decoded.error.has_value()) << decoded.status.reason;
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete) << decoded.status.reason;
    EXPECT_EQ(decoded.picture.format, "gif");
    EXPECT_EQ(PixelsOf(decoded), expected);
}

TEST(Gif, OneImageOfTheSizeOfTheScreen) {
    for (const std::string_view version : {"GIF87a", "GIF89a"}) {
        const DecodedPicture decoded =
            Decode(GifFile{.table = Table, .images = {{.pixels = {1, 2, 3, 0}}}, .version = version}.Make());
        ExpectComplete(decoded, {Red, Green, Blue, BlackPixel});
        EXPECT_EQ(decoded.picture.frames, 1);
        EXPECT_FALSE(decoded.picture.transparent);
    }
    EXPECT_TRUE(
        Decode(GifFile{.table = Table, .images = {{.pixels = {1, 2, 3, 0}}}, .version = "GIF90a"}.Make())
            .error.has_value());
}

TEST(Gif, EveryCodeSize) {
    for (unsigned size = 2; size <= 8; ++size)
        ExpectComplete(DecodeOne({.pixels = {1, 2, 3, 0}, .codeSize = size}), {Red, Green, Blue, BlackPixel});
}

TEST(Gif, ACodeThatIsAboutToBeDefined) {
    // 6 stands for the pixel before it, twice.
    const Bytes data = GifCodes().Put(4, 3).Put(1, 3).Put(6, 3).Put(2, 3).Put(5, 4).Blocks();
    ExpectComplete(DecodeOne({.codeSize = 2, .data = data}), {Red, Red, Red, Green});
}

TEST(Gif, ATableOfItsOwnCountsMore) {
    ExpectComplete(DecodeOne({.pixels = {0, 1, 0, 1}, .table = {WhitePixel, Blue}}),
                   {WhitePixel, Blue, WhitePixel, Blue});
}

TEST(Gif, TransparentIndex) {
    const DecodedPicture decoded = DecodeOne({.pixels = {1, 2, 3, 1}, .transparent = 1});
    ExpectComplete(decoded, {0, Green, Blue, 0});
    EXPECT_TRUE(decoded.picture.transparent);
    ExpectComplete(DecodeOne({.pixels = {1, 2, 3, 1}, .transparent = 255}), {Red, Green, Blue, Red});
}

TEST(Gif, Interlaced) {
    // Rows 0, 8; 4; 2, 6; 1, 3, 5, 7.
    ExpectComplete(DecodeOne({.width = 1,
                              .height = 9,
                              .pixels = {0, 8, 4, 2, 6, 1, 3, 5, 7},
                              .interlaced = true,
                              .table = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}},
                             1, 9),
                   {OpaquePixel(0, 0, 1), OpaquePixel(0, 0, 2), OpaquePixel(0, 0, 3), OpaquePixel(0, 0, 4),
                    OpaquePixel(0, 0, 5), OpaquePixel(0, 0, 6), OpaquePixel(0, 0, 7), OpaquePixel(0, 0, 8),
                    OpaquePixel(0, 0, 9)});
    ExpectComplete(DecodeOne({.height = 1, .pixels = {1, 2}, .interlaced = true}, 2, 1), {Red, Green});
}

TEST(Gif, WhatTheImageDoesNotCoverIsTransparent) {
    const DecodedPicture decoded =
        DecodeOne({.left = 1, .top = 1, .width = 1, .height = 1, .pixels = {1}}, 3, 2);
    ExpectComplete(decoded, {0, 0, 0, 0, Red, 0});
    EXPECT_TRUE(decoded.picture.transparent);
}

TEST(Gif, PartlyOffTheScreen) {
    ExpectComplete(DecodeOne({.left = 1, .top = 1, .pixels = {1, 2, 3, 0}}), {0, 0, 0, Red});
    ExpectComplete(DecodeOne({.width = 3, .height = 3, .pixels = {1, 2, 3, 2, 3, 1, 0, 0, 0}}),
                   {Red, Green, Green, Blue});
    ExpectComplete(
        DecodeOne({.left = 1, .width = 2, .height = 3, .pixels = {1, 2, 3, 2, 0, 1}, .interlaced = true}),
        {0, Red, 0, BlackPixel});
}

TEST(Gif, ImagesThatShowNothingArePassedOver) {
    const DecodedPicture decoded = Decode(GifFile{
        .table = Table,
        .images = {{.left = 2, .pixels = {1, 1, 1, 1}, .transparent = 2},
                   {.top = 60000, .pixels = {1, 1, 1, 1}},
                   {.width = 0, .pixels = {}},
                   {.pixels = {1, 2, 3, 0}}},
    }
                                              .Make());
    ExpectComplete(decoded, {Red, Green, Blue, BlackPixel});
    EXPECT_EQ(decoded.picture.frames, 4);
    EXPECT_EQ(DecodeOne({.left = 2, .pixels = {1, 1, 1, 1}}).error, ErrorNumber::InvalidPicture);
}

TEST(Gif, AScreenWithoutAreaTakesTheSizeOfTheImage) {
    ExpectComplete(DecodeOne({.left = 5, .width = 1, .height = 2, .pixels = {1, 2}}, 0, 7), {Red, Green});
    ExpectComplete(DecodeOne({.top = 5, .width = 2, .height = 1, .pixels = {1, 2}}, 7, 0), {Red, Green});
}

TEST(Gif, WithoutAnyTableTheColoursAreBlackWhiteAndGreys) {
    ExpectComplete(Decode(GifFile{.images = {{.pixels = {0, 1, 2, 200}}}}.Make()),
                   {BlackPixel, WhitePixel, OpaquePixel(2, 2, 2), OpaquePixel(200, 200, 200)});
}

TEST(Gif, IndexesBehindTheTableAreBlack) {
    ExpectComplete(DecodeOne({.pixels = {1, 4, 100, 255}}), {Red, BlackPixel, BlackPixel, BlackPixel});
}

TEST(Gif, FirstOfSeveralFrames) {
    const GifFile file{.table = Table,
                       .images = {{.pixels = {1, 1, 1, 1}},
                                  {.pixels = {2, 2, 2, 2}, .table = {Red, Red}},
                                  {.pixels = {3, 3, 3, 3}}},
                       .between = Bytes().U8({0x21, 0xFE, 2, 'h', 'i', 0})};
    const DecodedPicture decoded = Decode(file.Make());
    ExpectComplete(decoded, Pixels(4, Red));
    EXPECT_EQ(decoded.picture.frames, 3);
}

TEST(Gif, OpensOnItsFirstImageWithoutControlExtensionsToo) {
    std::vector<GifImage> parts{
        {.pixels = {1, 1, 1, 1}, .control = false},
        {.pixels = {2, 2, 2, 2}, .control = false},
        {.pixels = {3, 3, 3, 3}, .control = false},
    };
    const DecodedPicture decoded = Decode(GifFile{.table = Table, .images = parts}.Make());
    ExpectComplete(decoded, Pixels(4, Red));
    EXPECT_EQ(decoded.picture.frames, 3);
    EXPECT_FALSE(decoded.picture.transparent);

    // As the player does.
    const std::vector<std::byte> file = GifFile{.table = Table, .images = parts}.Make();
    const OpenedAnimation opened = OpenGifAnimation(std::make_unique<MemorySource>(file));
    ASSERT_NE(opened.animation, nullptr);
    EXPECT_EQ(opened.animation->Canvas().Row(0)[0], Red);
}

TEST(Gif, ImagesWithoutATimeOfTheirOwnAreShownWithTheNext) {
    const std::vector<GifImage> parts{
        {.pixels = {1, 1, 1, 1}, .control = false},
        {.left = 1, .width = 1, .pixels = {2, 3}, .transparent = 3},
        {.pixels = {3, 3, 3, 3}},
    };
    ExpectComplete(Decode(GifFile{.table = Table, .images = parts}.Make()), {Red, Green, Red, Red});

    std::vector<GifImage> timed = parts;
    timed[0].control = true;
    ExpectComplete(Decode(GifFile{.table = Table, .images = timed}.Make()), Pixels(4, Red));
}

TEST(Gif, ATextTakesTheControlBeforeItForItself) {
    GifFile file{.table = Table, .images = {{.pixels = {1, 2, 3, 0}, .control = false}}};
    file.before.U8({0x21, 0xF9, 4, 1, 10, 0, 1, 0}).U8({0x21, 0x01, 12}).Zeros(12).U8({0});
    ExpectComplete(Decode(file.Make()), {Red, Green, Blue, BlackPixel});
    file.images.push_back({.left = 1, .width = 1, .pixels = {3, 3}});
    ExpectComplete(Decode(file.Make()), {Red, Blue, Blue, Blue});
}

TEST(Gif, ControlsOfOddLengths) {
    GifFile file{.table = Table, .images = {{.pixels = {1, 2, 3, 0}, .control = false}}};
    file.before = Bytes().U8({0x21, 0xF9, 2, 1, 10, 0}).U8({0x21, 0xF9, 0});  // too short to say anything
    ExpectComplete(Decode(file.Make()), {Red, Green, Blue, BlackPixel});
    file.before = Bytes().U8({0x21, 0xF9, 6, 1, 10, 0, 1, 0, 0, 1, 9, 0});
    ExpectComplete(Decode(file.Make()), {0, Green, Blue, BlackPixel});
}

TEST(Gif, PaddingBetweenBlocks) {
    const DecodedPicture decoded =
        Decode(GifFile{.table = Table,
                       .images = {{.pixels = {1, 2, 3, 0}}, {.pixels = {1, 1, 1, 1}}},
                       .before = Bytes().Zeros(3),
                       .between = Bytes().Zeros(3)}
                   .Make());
    ExpectComplete(decoded, {Red, Green, Blue, BlackPixel});
    EXPECT_EQ(decoded.picture.frames, 2);
}

TEST(Gif, MorePixelsThanTheImageHas) {
    ExpectComplete(DecodeOne({.pixels = {1, 2, 3, 0, 1, 1, 1, 1, 1}}), {Red, Green, Blue, BlackPixel});
}

TEST(Gif, AMillionFramesAreCounted) {
    std::vector<std::byte> bytes =
        GifFile{.table = Table, .images = {{.pixels = {1, 2, 3, 0}}}, .trailer = false}.Make();
    const std::vector<std::byte> frame =
        Bytes().U8({0x2C}).Zeros(4).U16(1).U16(1).U8({0, 2, 2, 0x4C, 0x01, 0}).Get();
    bytes.reserve(bytes.size() + 1'000'000 * frame.size());
    for (int i = 0; i < 1'000'000; ++i)
        bytes.insert(bytes.end(), frame.begin(), frame.end());
    const DecodedPicture decoded = Decode(bytes);
    ExpectComplete(decoded, {Red, Green, Blue, BlackPixel});
    EXPECT_EQ(decoded.picture.frames, 1'000'001);
}

}  // namespace
}  // namespace tavrix::test
