#include <gtest/gtest.h>

#include "codecs/BmpFile.h"
#include "codecs/Decoding.h"
#include "codecs/PngFile.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;

/// Red, green over blue, white: the bottom row comes first.
Bytes FourColours24() {
    return Bytes().U8({255, 0, 0, 255, 255, 255, 0, 0}).U8({0, 0, 255, 0, 255, 0, 0, 0});
}
const Pixels FourColours{Red, Green, Blue, WhitePixel};

void ExpectComplete(const BmpFile& file, const Pixels& expected) {
    const DecodedPicture decoded = Decode(file.Make());
    ASSERT_FALSE(decoded.error.has_value()) << decoded.status.reason;
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
    EXPECT_EQ(decoded.picture.format, "bmp");
    EXPECT_EQ(decoded.picture.frames, 1);
    EXPECT_EQ(PixelsOf(decoded), expected);
}

TEST(BmpKinds, TwentyFourBitsFromTheBottom) {
    ExpectComplete({.pixels = FourColours24()}, FourColours);
}

TEST(BmpKinds, TwentyFourBitsFromTheTop) {
    ExpectComplete({.height = -2, .pixels = FourColours24()}, {Blue, WhitePixel, Red, Green});
}

TEST(BmpKinds, CoreHeader) {
    ExpectComplete({.headerSize = 12, .pixels = FourColours24()}, FourColours);
}

TEST(BmpKinds, CoreHeaderWithPalette) {
    ExpectComplete({.bits = 4,
                    .headerSize = 12,
                    .palette = Pixels(16, Green),
                    .pixels = Bytes().U8({0x01, 0, 0, 0, 0x01, 0, 0, 0})},
                   Pixels(4, Green));
}

TEST(BmpKinds, EveryHeaderSize) {
    for (const std::uint32_t size : {16U, 20U, 36U, 40U, 52U, 56U, 64U, 108U, 124U}) {
        SCOPED_TRACE(size);
        if (size >= 40) {
            ExpectComplete({.headerSize = size, .pixels = FourColours24()}, FourColours);
            continue;
        }
        Bytes file;  // OS/2 leaves away fields from the end
        file.Text("BM").Zeros(8).U32(14 + size).U32(size);
        file.I32(2).I32(2).U16(1).U16(24).Zeros(size - 16).Append(FourColours24().Get());
        EXPECT_EQ(PixelsOf(Decode(file.Get())), FourColours);
    }
}

TEST(BmpKinds, WideRowsTakeTheFastPath) {
    constexpr int Width = 67;  // several groups of 16 and a rest
    BmpFile file{.width = Width, .height = 1};
    Pixels expected;
    for (unsigned i = 0; i < Width; ++i) {
        file.pixels.U8({i, 100 + i, 200 - i});
        expected.push_back(OpaquePixel(200 - i, 100 + i, i));
    }
    file.pixels.Zeros(3);
    ExpectComplete(file, expected);
}

TEST(BmpKinds, OneBit) {
    ExpectComplete({.width = 10,
                    .height = 1,
                    .bits = 1,
                    .palette = {Red, Blue},
                    .pixels = Bytes().U8({0b10110000, 0b01000000, 0, 0})},
                   {Blue, Red, Blue, Blue, Red, Red, Red, Red, Red, Blue});
}

TEST(BmpKinds, TwoBits) {
    ExpectComplete({.width = 5,
                    .height = 1,
                    .bits = 2,
                    .palette = {Red, Green, Blue, WhitePixel},
                    .pixels = Bytes().U8({0b00011011, 0b11000000, 0, 0})},
                   {Red, Green, Blue, WhitePixel, WhitePixel});
}

TEST(BmpKinds, FourBits) {
    ExpectComplete({.width = 3,
                    .height = 1,
                    .bits = 4,
                    .coloursTold = 3,
                    .palette = {Red, Green, Blue},
                    .pixels = Bytes().U8({0x01, 0x20, 0, 0})},
                   {Red, Green, Blue});
}

TEST(BmpKinds, EightBitsAndIndexesWithoutColour) {
    ExpectComplete({.width = 4,
                    .height = 1,
                    .bits = 8,
                    .coloursTold = 2,
                    .palette = {Red, Green},
                    .pixels = Bytes().U8({1, 0, 2, 255})},
                   {Green, Red, BlackPixel, BlackPixel});
}

TEST(BmpKinds, SixteenBits) {
    ExpectComplete(
        {.width = 4,
         .height = 1,
         .bits = 16,
         .pixels = Bytes().U16(0x7C00).U16(0x03E0).U16(0x001F).U16(0x8000 | (16 << 10) | (1 << 5) | 3)},
        {Red, Green, Blue, OpaquePixel(0x84, 0x08, 0x18)});
}

TEST(BmpKinds, SixteenBitsByMasks) {
    ExpectComplete({.width = 4,
                    .height = 1,
                    .bits = 16,
                    .compression = 3,
                    .masks = {0xF800, 0x07E0, 0x001F},
                    .pixels = Bytes().U16(0xF800).U16(0x07E0).U16(0x001F).U16(0x0020)},
                   {Red, Green, Blue, OpaquePixel(0, 4, 0)});
}

TEST(BmpKinds, ThirtyTwoBitsAreOpaqueWhateverTheFourthByteHolds) {
    ExpectComplete({.width = 2, .height = 1, .bits = 32, .pixels = Bytes().U32(0x00FF0000).U32(0x7F00FF00)},
                   {Red, Green});
}

TEST(BmpKinds, ThirtyTwoBitsByMasks) {
    ExpectComplete({.width = 3,
                    .height = 1,
                    .bits = 32,
                    .compression = 3,
                    .masks = {0x000000FF, 0x0000FF00, 0x00FF0000},
                    .pixels = Bytes().U32(0x000000FF).U32(0x0000FF00).U32(0x12FF0000)},
                   {Red, Green, Blue});
}

TEST(BmpKinds, MasksOfOddWidths) {
    ExpectComplete({.width = 2,
                    .height = 1,
                    .bits = 32,
                    .compression = 3,
                    .masks = {0x3FF00000, 0x000FFFFF, 0},
                    .pixels = Bytes().U32(0x3FF00000).U32(0x000FFFFF)},
                   {Red, Green});
}

TEST(BmpKinds, AlphaThatIsDeclaredAndUsed) {
    const DecodedPicture decoded = Decode(BmpFile{.width = 2,
                                                  .height = 1,
                                                  .bits = 32,
                                                  .compression = 3,
                                                  .headerSize = 108,
                                                  .masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000},
                                                  .pixels = Bytes().U32(0x80FF0000).U32(0x00000000)}
                                              .Make());
    EXPECT_TRUE(decoded.picture.transparent);
    EXPECT_EQ(PixelsOf(decoded), (Pixels{0x80FF0000U, 0}));
}

TEST(BmpKinds, AlphaThatIsZeroThroughoutMeansOpaque) {
    const DecodedPicture decoded = Decode(BmpFile{.width = 2,
                                                  .height = 1,
                                                  .bits = 32,
                                                  .compression = 6,
                                                  .masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000},
                                                  .pixels = Bytes().U32(0x00FF0000).U32(0x000000FF)}
                                              .Make());
    EXPECT_FALSE(decoded.picture.transparent);
    EXPECT_EQ(PixelsOf(decoded), (Pixels{Red, Blue}));
}

TEST(BmpKinds, RunsOfEightBits) {
    // Two red; end of row; a literal of three (padded); end.
    ExpectComplete({.width = 3,
                    .height = 2,
                    .bits = 8,
                    .compression = 1,
                    .coloursTold = 3,
                    .palette = {WhitePixel, Red, Blue},
                    .pixels = Bytes().U8({2, 1, 0, 0, 0, 3, 2, 1, 2, 0, 0, 1})},
                   {Blue, Red, Blue, Red, Red, WhitePixel});
}

TEST(BmpKinds, RunsOfFourBitsAlternate) {
    ExpectComplete({.width = 5,
                    .height = 1,
                    .bits = 4,
                    .compression = 2,
                    .coloursTold = 3,
                    .palette = {WhitePixel, Red, Blue},
                    .pixels = Bytes().U8({3, 0x12, 0, 2, 1, 0, 1, 0x20, 0, 1})},
                   {Red, Blue, Red, WhitePixel, Blue});
}

TEST(BmpKinds, LiteralsOfFourBits) {
    ExpectComplete({.width = 5,
                    .height = 1,
                    .bits = 4,
                    .compression = 2,
                    .coloursTold = 3,
                    .palette = {WhitePixel, Red, Blue},
                    .pixels = Bytes().U8({0, 5, 0x12, 0x12, 0x10, 0, 0, 1})},
                   {Red, Blue, Red, Blue, Red});
}

TEST(BmpKinds, RunsOfTwentyFourBits) {
    ExpectComplete({.width = 3,
                    .height = 1,
                    .compression = 4,
                    .headerSize = 64,
                    .pixels = Bytes().U8({2, 0, 0, 255, 0, 3, 0, 255, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1})},
                   {Red, Red, Green});
}

TEST(BmpKinds, AWholePngFileInPlaceOfPixels) {
    const PngFile png{.colourType = 2, .rows = {255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255, 255}};
    for (const unsigned bits : {0U, 24U})
        ExpectComplete({.bits = bits, .compression = 5, .pixels = Bytes().Append(png.Make())},
                       {Red, Green, Blue, WhitePixel});
}

TEST(BmpKinds, ArrayOfBitmapsGivesTheFirst) {
    Bytes file;
    file.Text("BA").U32(40).U32(0).U32(0);
    file.Append(BmpFile{.pixels = FourColours24(), .offset = 14 + 14 + 40}.Make());
    EXPECT_EQ(PixelsOf(Decode(file.Get())), FourColours);
}

TEST(BmpKinds, GapBeforeThePixels) {
    ExpectComplete({.pixels = FourColours24(), .gap = 100}, FourColours);
}

TEST(BmpKinds, OffsetThatLies) {
    const auto end = static_cast<std::uint32_t>(BmpFile{.pixels = FourColours24()}.Make().size());
    for (const std::uint32_t offset : {0U, 10U, 53U, end, 70'000U, 0xFFFFFFFFU}) {
        SCOPED_TRACE(offset);
        ExpectComplete({.pixels = FourColours24(), .offset = offset}, FourColours);
    }
}

TEST(BmpKinds, PaletteLargerThanPossible) {
    ExpectComplete({.width = 4,
                    .height = 1,
                    .bits = 8,
                    .coloursTold = 300,
                    .palette = Pixels(300, Green),
                    .pixels = Bytes().U8({0, 1, 2, 255})},
                   Pixels(4, Green));
}

TEST(BmpKinds, PaletteCutByThePixels) {
    ExpectComplete({.width = 4,
                    .height = 1,
                    .bits = 8,
                    .coloursTold = 0,  // tells 256, holds two
                    .palette = {Red, Green},
                    .pixels = Bytes().U8({0, 1, 1, 0}).Zeros(900)},
                   {Red, Green, Green, Red});
}

TEST(BmpKinds, Refused) {
    const auto refused = [](const BmpFile& file) {
        const DecodedPicture decoded = Decode(file.Make());
        return decoded.picture.Empty() && decoded.error == ErrorNumber::InvalidPicture;
    };
    EXPECT_TRUE(refused({.width = 0, .pixels = FourColours24()}));
    EXPECT_TRUE(refused({.width = -2, .pixels = FourColours24()}));
    EXPECT_TRUE(refused({.height = 0, .pixels = FourColours24()}));
    EXPECT_TRUE(refused({.height = std::numeric_limits<int>::min(), .pixels = FourColours24()}));
    EXPECT_TRUE(refused({.compression = 5, .pixels = FourColours24()}));   // no PNG
    EXPECT_TRUE(refused({.compression = 11, .pixels = FourColours24()}));  // CMYK
    EXPECT_TRUE(refused({.compression = 1, .pixels = FourColours24()}));   // runs of 8 bits in 24
    EXPECT_TRUE(refused({.bits = 1, .compression = 3, .headerSize = 64, .pixels = FourColours24()}));  // fax
    EXPECT_TRUE(refused({.headerSize = 13, .pixels = FourColours24()}));
    EXPECT_TRUE(refused({.headerSize = 5000, .pixels = FourColours24()}));
    EXPECT_TRUE(refused({.bits = 8, .coloursTold = 0x40000000, .pixels = FourColours24()}));
    EXPECT_TRUE(refused({.compression = 4, .pixels = FourColours24()}));  // JPEG that is none
    for (const unsigned bits : {0U, 3U, 12U, 15U, 25U, 33U, 64U, 65535U}) {
        EXPECT_TRUE(refused({.bits = bits, .pixels = FourColours24()})) << bits;
    }
}

TEST(BmpKinds, OverTheLimits) {
    for (const int width : {1 << 25, std::numeric_limits<int>::max()}) {
        const DecodedPicture decoded = Decode(BmpFile{.width = width, .pixels = FourColours24()}.Make());
        EXPECT_EQ(decoded.error, ErrorNumber::OutOfMemory);
    }
}

}  // namespace
}  // namespace tavrix::test
