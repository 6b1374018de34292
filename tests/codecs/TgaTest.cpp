#include <gtest/gtest.h>

#include "codecs/Decoding.h"
#include "codecs/TgaFile.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;

/// Blue, green, red of four pixels.
const Bytes FourColours = Bytes().U8({0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255});

DecodedPicture DecodeTgaFile(const TgaFile& file) {
    return Decode(file.Make(), "c:\\a.TGA");
}

Pixels PixelsOfFile(const TgaFile& file) {
    const DecodedPicture decoded = DecodeTgaFile(file);
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
    EXPECT_EQ(decoded.picture.format, "tga");
    return PixelsOf(decoded);
}

TEST(Tga, FourCorners) {
    EXPECT_EQ(PixelsOfFile({.descriptor = 0x20, .pixels = FourColours}),
              (Pixels{Red, Green, Blue, WhitePixel}));
    EXPECT_EQ(PixelsOfFile({.descriptor = 0x00, .pixels = FourColours}),
              (Pixels{Blue, WhitePixel, Red, Green}));
    EXPECT_EQ(PixelsOfFile({.descriptor = 0x30, .pixels = FourColours}),
              (Pixels{Green, Red, WhitePixel, Blue}));
    EXPECT_EQ(PixelsOfFile({.descriptor = 0x10, .pixels = FourColours}),
              (Pixels{WhitePixel, Blue, Green, Red}));
}

TEST(Tga, TheIdAndAMapThatIsNotUsedArePassedOver) {
    EXPECT_EQ(PixelsOfFile({.id = Bytes().Text("some words"), .pixels = FourColours}),
              (Pixels{Red, Green, Blue, WhitePixel}));
    EXPECT_EQ(
        PixelsOfFile({.mapLength = 2, .mapBits = 15, .map = Bytes().U8({1, 2, 3, 4}), .pixels = FourColours}),
        (Pixels{Red, Green, Blue, WhitePixel}));
}

TEST(Tga, SixteenBits) {
    const Bytes stored = Bytes().U16(0x7C00).U16(0x83E0).U16(0x001F).U16(0x4210);
    const Pixels opaque{Red, Green, Blue, 0xFF848484U};
    EXPECT_EQ(PixelsOfFile({.bits = 16, .pixels = stored}), opaque);
    EXPECT_EQ(PixelsOfFile({.bits = 15, .pixels = stored}), opaque);
    EXPECT_EQ(PixelsOfFile({.bits = 16, .descriptor = 0x28, .pixels = stored}), opaque);
}

TEST(Tga, TheBitOfSixteenIsAlphaOnlyWhereTheFileSaysSo) {
    const Bytes stored = Bytes().U16(0x7C00).U16(0x83E0).U16(0x001F).U16(0x4210);
    const Pixels opaque{Red, Green, Blue, 0xFF848484U};
    const Pixels alpha{0x00FF0000U, Green, 0x000000FFU, 0x00848484U};
    const auto with = [&](std::optional<unsigned> attributes, unsigned descriptor = 0x21) {
        return PixelsOfFile(
            {.bits = 16, .descriptor = descriptor, .pixels = stored, .attributes = attributes});
    };
    EXPECT_EQ(with(std::nullopt), opaque);
    EXPECT_FALSE(DecodeTgaFile({.bits = 16, .descriptor = 0x21, .pixels = stored}).picture.transparent);
    EXPECT_EQ(with(0), opaque);
    EXPECT_EQ(with(2), opaque);
    EXPECT_EQ(with(3), alpha);
    EXPECT_EQ(with(4), alpha);
    EXPECT_EQ(with(3, 0x28), opaque) << "eight bits cannot be meant";
}

TEST(Tga, TheBitOfAMapsEntriesIsAlphaOnlyWhereTheFileSaysSo) {
    const TgaFile file{.type = 1,
                       .width = 2,
                       .height = 1,
                       .bits = 8,
                       .descriptor = 0x21,
                       .mapLength = 2,
                       .mapBits = 16,
                       .map = Bytes().U16(0x7C00).U16(0x83E0),
                       .pixels = Bytes().U8({0, 1})};
    EXPECT_EQ(PixelsOfFile(file), (Pixels{Red, Green}));
    TgaFile told = file;
    told.attributes = 3;
    EXPECT_EQ(PixelsOfFile(told), (Pixels{0x00FF0000U, Green}));
}

TEST(Tga, ThirtyTwoBitsAndTheAttributeBits) {
    const Bytes stored = Bytes().U32(0x80FF0000).U32(0xFF00FF00).U32(0x000000FF).U32(0x40204060);
    const Pixels opaque{Red, Green, Blue, 0xFF204060U};
    const Pixels alpha{0x80FF0000U, Green, 0x000000FFU, 0x40204060U};
    EXPECT_EQ(PixelsOfFile({.bits = 32, .descriptor = 0x20, .pixels = stored}), opaque);
    EXPECT_EQ(PixelsOfFile({.bits = 32, .descriptor = 0x28, .pixels = stored}), alpha);
    EXPECT_TRUE(DecodeTgaFile({.bits = 32, .descriptor = 0x28, .pixels = stored}).picture.transparent);
    EXPECT_FALSE(DecodeTgaFile({.bits = 32, .descriptor = 0x20, .pixels = stored}).picture.transparent);
}

TEST(Tga, TheExtensionAreaTellsWhatTheAttributeBitsMean) {
    const auto with = [](unsigned attributes) {
        const Bytes stored = Bytes().U32(0x80400000).U32(0xFF00FF00).U32(0x000000FF).U32(0x40FF4060);
        return PixelsOfFile({.bits = 32, .descriptor = 0x28, .pixels = stored, .attributes = attributes});
    };
    const Pixels opaque{0xFF400000U, Green, Blue, 0xFFFF4060U};
    const Pixels alpha{0x80400000U, Green, 0x000000FFU, 0x40FF4060U};
    EXPECT_EQ(with(0), alpha);
    EXPECT_EQ(with(1), opaque);
    EXPECT_EQ(with(2), opaque);
    EXPECT_EQ(with(3), alpha);
    // 0x40 of 0x80 is half; what is above its alpha is as bright as can be.
    EXPECT_EQ(with(4), (Pixels{0x80800000U, Green, 0x000000FFU, 0x40FFFFFFU}));
}

TEST(Tga, AttributeBitsThatAreZeroThroughoutMeanNothing) {
    const Bytes stored = Bytes().U32(0xFF0000).U32(0xFF00).U32(0xFF).U32(0xFFFFFF);
    EXPECT_EQ(PixelsOfFile({.bits = 32, .descriptor = 0x28, .pixels = stored}),
              (Pixels{Red, Green, Blue, WhitePixel}));
    EXPECT_EQ(
        PixelsOfFile(
            {.bits = 16, .descriptor = 0x21, .pixels = Bytes().U16(0x7C00).U16(0x3E0).U16(0x1F).U16(0x7FFF)}),
        (Pixels{Red, Green, Blue, WhitePixel}));
}

TEST(Tga, Grey) {
    EXPECT_EQ(PixelsOfFile({.type = 3, .bits = 8, .pixels = Bytes().U8({0, 1, 128, 255})}),
              (Pixels{BlackPixel, 0xFF010101U, 0xFF808080U, WhitePixel}));
    const Bytes withAlpha = Bytes().U8({0, 255, 1, 0, 128, 127, 255, 255});
    EXPECT_EQ(PixelsOfFile({.type = 3, .bits = 16, .descriptor = 0x28, .pixels = withAlpha}),
              (Pixels{BlackPixel, 0x00010101U, 0x7F808080U, WhitePixel}));
    EXPECT_EQ(PixelsOfFile({.type = 3, .bits = 16, .pixels = withAlpha}),
              (Pixels{BlackPixel, 0xFF010101U, 0xFF808080U, WhitePixel}));
}

TEST(Tga, ColourMapsOfEachDepth) {
    const Bytes indexes = Bytes().U8({0, 1, 2, 0});
    const Pixels expected{Red, Green, Blue, Red};
    const auto with = [&](unsigned mapBits, const Bytes& map, unsigned descriptor = 0x20) {
        return PixelsOfFile({.type = 1,
                             .bits = 8,
                             .descriptor = descriptor,
                             .mapLength = 3,
                             .mapBits = mapBits,
                             .map = map,
                             .pixels = indexes});
    };
    const Bytes packed16 = Bytes().U16(0x7C00).U16(0x83E0).U16(0x1F);
    EXPECT_EQ(with(15, packed16), expected);
    EXPECT_EQ(with(16, packed16), expected);
    EXPECT_EQ(with(16, packed16, 0x21), expected);
    EXPECT_EQ(with(24, Bytes().U8({0, 0, 255, 0, 255, 0, 255, 0, 0})), expected);
    const Bytes packed32 = Bytes().U32(0x10FF0000).U32(0x2000FF00).U32(0x300000FF);
    EXPECT_EQ(with(32, packed32), expected);
    EXPECT_EQ(with(32, packed32, 0x28), (Pixels{0x10FF0000U, 0x2000FF00U, 0x300000FFU, 0x10FF0000U}));
}

TEST(Tga, TheMapMayBeginAtAnyIndex) {
    const Bytes map = Bytes().U8({0, 0, 255, 0, 255, 0});
    EXPECT_EQ(PixelsOfFile({.type = 1,
                            .bits = 8,
                            .mapFirst = 200,
                            .mapLength = 2,
                            .mapBits = 24,
                            .map = map,
                            .pixels = Bytes().U8({200, 201, 202, 0})}),
              (Pixels{Red, Green, BlackPixel, BlackPixel}));
    EXPECT_EQ(PixelsOfFile({.type = 1,
                            .bits = 16,
                            .mapFirst = 65535,
                            .mapLength = 2,
                            .mapBits = 24,
                            .map = map,
                            .pixels = Bytes().U16(65535).U16(65534).U16(0).U16(65535)}),
              (Pixels{Red, BlackPixel, BlackPixel, Red}));
}

TEST(Tga, RunsOfEachDepth) {
    // Two red, then two as they are.
    EXPECT_EQ(PixelsOfFile({.type = 10, .pixels = Bytes().U8({0x81, 0, 0, 255, 0x01, 0, 255, 0, 255, 0, 0})}),
              (Pixels{Red, Red, Green, Blue}));
    EXPECT_EQ(PixelsOfFile({.type = 10,
                            .bits = 32,
                            .pixels = Bytes().U8({0x81}).U32(0xFF0000).U8({0x01}).U32(0xFF00).U32(0xFF)}),
              (Pixels{Red, Red, Green, Blue}));
    EXPECT_EQ(PixelsOfFile({.type = 10,
                            .bits = 16,
                            .pixels = Bytes().U8({0x81}).U16(0x7C00).U8({0x01}).U16(0x3E0).U16(0x1F)}),
              (Pixels{Red, Red, Green, Blue}));
    EXPECT_EQ(PixelsOfFile({.type = 11, .bits = 8, .pixels = Bytes().U8({0x82, 7, 0x00, 9})}),
              (Pixels{0xFF070707U, 0xFF070707U, 0xFF070707U, 0xFF090909U}));
    EXPECT_EQ(PixelsOfFile({.type = 9,
                            .bits = 8,
                            .mapLength = 2,
                            .mapBits = 24,
                            .map = Bytes().U8({0, 0, 255, 0, 255, 0}),
                            .pixels = Bytes().U8({0x80, 1, 0x02, 0, 1, 0})}),
              (Pixels{Green, Red, Green, Red}));
}

TEST(Tga, PacketsMayGoOnInTheNextRowAndBeyondThePicture) {
    EXPECT_EQ(
        PixelsOfFile({.type = 11, .width = 3, .bits = 8, .pixels = Bytes().U8({0x03, 1, 2, 3, 4, 0xFF, 5})}),
        (Pixels{0xFF010101U, 0xFF020202U, 0xFF030303U, 0xFF040404U, 0xFF050505U, 0xFF050505U}));
    EXPECT_EQ(PixelsOfFile({.type = 11,
                            .width = 1,
                            .height = 1,
                            .bits = 8,
                            .descriptor = 0x10,
                            .pixels = Bytes().U8({0xFF, 5})}),
              Pixels{0xFF050505U});
}

TEST(Tga, MoreThanABufferOfRows) {
    TgaFile file{.width = 997, .height = 300, .descriptor = 0x10};
    unsigned value = 1;
    Pixels expected(997 * 300);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        value = value * 1664525U + 1013904223U;
        file.pixels.U8({value >> 24U, (value >> 16U) & 0xFFU, (value >> 8U) & 0xFFU});
        expected[expected.size() - 1 - i] =
            OpaquePixel((value >> 8U) & 0xFFU, (value >> 16U) & 0xFFU, value >> 24U);
    }
    EXPECT_EQ(PixelsOfFile(file), expected);
}

}  // namespace
}  // namespace tavrix::test
