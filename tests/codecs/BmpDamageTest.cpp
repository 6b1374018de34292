#include <gtest/gtest.h>

#include "codecs/BmpFile.h"
#include "codecs/Decoding.h"

namespace tavrix::test {
namespace {

std::vector<BmpFile> SmallFiles() {
    const Bytes pixels = Bytes().U32(0x11223344).U32(0x55667788).U32(0x99AABBCC).U32(0xDDEEFF00);
    const std::vector<Pixel> palette(16, Red);
    return {
        {.pixels = pixels},
        {.height = -2, .pixels = pixels},
        {.headerSize = 12, .pixels = pixels},
        {.bits = 1, .palette = palette, .pixels = pixels},
        {.bits = 4, .coloursTold = 16, .palette = palette, .pixels = pixels},
        {.bits = 8, .coloursTold = 16, .palette = palette, .pixels = pixels},
        {.bits = 16, .compression = 3, .masks = {0xF800, 0x7E0, 0x1F}, .pixels = pixels},
        {.bits = 32,
         .compression = 3,
         .headerSize = 124,
         .masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000},
         .pixels = pixels},
        {.bits = 8,
         .compression = 1,
         .palette = palette,
         .pixels = Bytes().U8({2, 1, 0, 0, 0, 3, 1, 2, 3, 0, 0, 2, 1, 0, 0, 1})},
        {.bits = 4,
         .compression = 2,
         .palette = palette,
         .pixels = Bytes().U8({2, 0x12, 0, 0, 0, 5, 1, 2, 3, 0, 0, 1})},
        {.compression = 4, .headerSize = 64, .pixels = Bytes().U8({2, 1, 2, 3, 0, 0, 0, 3, 1, 2,
                                                                   3, 4, 5, 6, 7, 8, 9, 0, 0, 1})},
    };
}

TEST(BmpDamage, CutAtEveryByte) {
    for (const BmpFile& file : SmallFiles()) {
        const std::vector<std::byte> bytes = file.Make();
        const std::vector<Pixel> whole = PixelsOf(Decode(bytes));
        ASSERT_EQ(whole.size(), 4U);
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            const DecodedPicture decoded = Decode(std::span(bytes).first(length));
            if (decoded.error) {
                EXPECT_EQ(decoded.error, ErrorNumber::InvalidPicture);
                EXPECT_TRUE(decoded.picture.Empty());
                continue;
            }
            EXPECT_TRUE(decoded.status.someRows);
            EXPECT_EQ(decoded.picture.Width(), 2);
            EXPECT_EQ(decoded.picture.Height(), 2);
            EXPECT_LE(decoded.status.offset, length);
        }
    }
}

TEST(BmpDamage, CutPixelsAreShownAsFarAsTheyGo) {
    std::vector<std::byte> bytes =
        BmpFile{.width = 2, .height = 3, .pixels = Bytes().U8({1, 1, 1, 2, 2, 2, 0, 0}).U8({3, 3, 3, 4, 4})}
            .Make();
    const DecodedPicture decoded = Decode(bytes);
    EXPECT_EQ(decoded.status.outcome, Outcome::Truncated);
    EXPECT_EQ(decoded.status.offset, bytes.size());
    EXPECT_TRUE(decoded.picture.transparent);
    EXPECT_EQ(PixelsOf(decoded),
              (std::vector<Pixel>{Untouched, Untouched, 0xFF030303U, Untouched, 0xFF010101U, 0xFF020202U}));
}

TEST(BmpDamage, MissingLastPaddingIsNoDamage) {
    const DecodedPicture decoded =
        Decode(BmpFile{.width = 1, .height = -1, .pixels = Bytes().U8({0, 0, 255})}.Make());
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
    EXPECT_EQ(PixelsOf(decoded), std::vector<Pixel>{Red});
}

TEST(BmpDamage, RunsThatLeaveThePicture) {
    const auto runs = [](const Bytes& pixels) {
        return Decode(BmpFile{.width = 2,
                              .height = 2,
                              .bits = 8,
                              .compression = 1,
                              .coloursTold = 2,
                              .palette = {WhitePixel, Red},
                              .pixels = pixels}
                          .Make());
    };
    // Too long a row goes on in the next, and ends with the picture.
    const DecodedPicture tooLong = runs(Bytes().U8({3, 1, 0, 1}));
    EXPECT_EQ(PixelsOf(tooLong), (std::vector<Pixel>{Red, WhitePixel, Red, Red}));
    EXPECT_EQ(PixelsOf(runs(Bytes().U8({255, 1, 255, 1, 0, 1}))), std::vector<Pixel>(4, Red));

    const DecodedPicture away = runs(Bytes().U8({1, 1, 0, 2, 0, 200, 5, 1, 0, 1}));
    EXPECT_EQ(away.status.outcome, Outcome::Corrupt);
    EXPECT_EQ(PixelsOf(away), (std::vector<Pixel>{WhitePixel, WhitePixel, Red, WhitePixel}));

    const DecodedPicture noEnd = runs(Bytes().U8({2, 1}));
    EXPECT_EQ(noEnd.status.outcome, Outcome::Truncated);
    EXPECT_EQ(PixelsOf(noEnd), (std::vector<Pixel>{WhitePixel, WhitePixel, Red, Red}));

    // Both rows ended: nothing is missing although the end is not told.
    EXPECT_EQ(runs(Bytes().U8({2, 1, 0, 0, 2, 1, 0, 0})).status.outcome, Outcome::Complete);
}

TEST(BmpDamage, HugeRunLengthPictureOfNothingStaysUntouched) {
    const DecodedPicture decoded = Decode(BmpFile{.width = 16000,
                                                  .height = 16000,
                                                  .bits = 8,
                                                  .compression = 1,
                                                  .coloursTold = 1,
                                                  .palette = {Red},
                                                  .pixels = Bytes().U8({0, 1})}
                                              .Make());
    ASSERT_FALSE(decoded.error.has_value());
    EXPECT_TRUE(decoded.picture.transparent);
    EXPECT_EQ(decoded.picture.pixels->Whole().Row(15999)[0], Untouched);
}

TEST(BmpDamage, NoPixelsAtAll) {
    EXPECT_EQ(Decode(BmpFile{.width = 16000, .height = 16000}.Make()).error, ErrorNumber::InvalidPicture);
    EXPECT_EQ(Decode({}).error, ErrorNumber::InvalidPicture);
}

}  // namespace
}  // namespace tavrix::test
