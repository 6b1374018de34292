#include <gtest/gtest.h>

#include "codecs/Decoding.h"
#include "codecs/PcxFile.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;

DecodedPicture DecodePcxFile(const PcxFile& file) {
    return Decode(file.Make(), "a.pcx");
}

TEST(PcxDamage, CutAtEveryByte) {
    const Bytes twelve = Bytes().U8({1, 2, 3, 4, 5, 6, 0xC2, 8, 9, 10, 0xC1, 12, 13, 14});
    const std::vector<PcxFile> files{
        {.height = 3, .lines = twelve},
        {.planes = 3, .lines = twelve},
        {.encoding = 0, .planes = 3, .width = 3, .lines = twelve},
        {.bits = 1, .planes = 4, .width = 20, .bytesPerLine = 3, .lines = twelve},
        {.bits = 4, .width = 7, .height = 3, .lines = twelve},
    };
    for (const PcxFile& file : files) {
        const std::vector<std::byte> bytes = file.Make();
        const DecodedPicture whole = Decode(bytes, "a.pcx");
        ASSERT_EQ(whole.status.outcome, Outcome::Complete);
        const Pixels expected = PixelsOf(whole);
        std::ptrdiff_t drawnBefore = 0;
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            SCOPED_TRACE(length);
            const DecodedPicture decoded = Decode(std::span(bytes).first(length), "a.pcx");
            EXPECT_LE(decoded.status.offset, length);
            if (decoded.error) {
                EXPECT_EQ(decoded.error, ErrorNumber::InvalidPicture);
                EXPECT_EQ(drawnBefore, 0);
                continue;
            }
            const Pixels pixels = PixelsOf(decoded);
            ASSERT_EQ(pixels.size(), expected.size());
            const auto drawn = std::ranges::count_if(pixels, [](Pixel pixel) { return pixel != Untouched; });
            EXPECT_TRUE(std::equal(pixels.begin(), pixels.begin() + drawn, expected.begin()));
            EXPECT_GE(drawn, drawnBefore);
            EXPECT_EQ(decoded.status.outcome,
                      drawn == std::ssize(expected) ? Outcome::Complete : Outcome::Truncated);
            drawnBefore = drawn;
        }
        EXPECT_GT(drawnBefore, 0);
    }
}

TEST(PcxDamage, ThePaletteIsNotTakenForPixels) {
    const DecodedPicture decoded =
        DecodePcxFile({.height = 2, .lines = Bytes().U8({0, 1, 0, 1, 1}), .palette = {Red, Green}});
    EXPECT_EQ(decoded.status.outcome, Outcome::Truncated);
    EXPECT_EQ(decoded.status.offset, 133U);
    EXPECT_EQ(PixelsOf(decoded), (Pixels{Red, Green, Red, Green, Green, 0, 0, 0}));
}

TEST(PcxDamage, ACutPaletteLeavesGrey) {
    std::vector<std::byte> bytes = PcxFile{.lines = Bytes().U8({0, 1, 2, 3}), .palette = {Red}}.Make();
    bytes.resize(bytes.size() - 1);
    const DecodedPicture decoded = Decode(bytes, "a.pcx");
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
    EXPECT_EQ(PixelsOf(decoded), (Pixels{BlackPixel, 0xFF010101U, 0xFF020202U, 0xFF030303U}));
}

TEST(PcxDamage, MissingLastPaddingIsNoDamage) {
    EXPECT_EQ(DecodePcxFile({.width = 3, .lines = Bytes().U8({1, 2, 3})}).status.outcome, Outcome::Complete);
}

TEST(PcxDamage, HeadersThatMakeNoSense) {
    const Bytes lines = Bytes().Zeros(64);
    const std::vector<PcxFile> files{
        {.version = 6, .lines = lines},
        {.version = 255, .lines = lines},
        {.encoding = 2, .lines = lines},
        {.bits = 0, .lines = lines},
        {.bits = 3, .lines = lines},
        {.bits = 16, .lines = lines},
        {.bits = 255, .lines = lines},
        {.planes = 0, .lines = lines},
        {.planes = 2, .lines = lines},
        {.planes = 5, .lines = lines},
        {.planes = 255, .lines = lines},
        {.bits = 1, .planes = 5, .lines = lines},
        {.bits = 2, .planes = 3, .lines = lines},
        {.bits = 4, .planes = 2, .lines = lines},
        {.width = 0, .left = 5, .lines = lines},
        {.height = 0, .top = 5, .lines = lines},
        {.bytesPerLine = 0, .lines = lines},
        {.bytesPerLine = 3, .lines = lines},
        {.bits = 1, .width = 33, .bytesPerLine = 4, .lines = lines},
    };
    for (const PcxFile& file : files) {
        const DecodedPicture decoded = DecodePcxFile(file);
        EXPECT_EQ(decoded.error, ErrorNumber::InvalidPicture);
        EXPECT_EQ(decoded.status.outcome, Outcome::Corrupt);
    }
}

TEST(PcxDamage, SizesBeyondTheLimitsAreRefused) {
    EXPECT_EQ(
        DecodePcxFile({.width = 65535, .height = 65535, .bytesPerLine = 65535, .lines = Bytes().Zeros(9)})
            .error,
        ErrorNumber::OutOfMemory);
}

TEST(PcxDamage, ManyRunsOfNothing) {
    Bytes lines;
    for (int i = 0; i < 100'000; ++i)
        lines.U8({0xC0, 1});
    const DecodedPicture none = DecodePcxFile({.lines = lines});
    EXPECT_EQ(none.error, ErrorNumber::InvalidPicture);
    EXPECT_EQ(none.status.outcome, Outcome::Truncated);
    EXPECT_EQ(PixelsOf(DecodePcxFile({.width = 1, .lines = Bytes(lines).U8({0xFF, 9})})),
              Pixels{0xFF090909U});
}

TEST(PcxDamage, NoPixelsAtAll) {
    EXPECT_EQ(DecodePcxFile({}).error, ErrorNumber::InvalidPicture);
    EXPECT_EQ(DecodePcxFile({.palette = {Red}}).error, ErrorNumber::InvalidPicture);
    EXPECT_EQ(Decode({}, "a.pcx").error, ErrorNumber::InvalidPicture);
}

}  // namespace
}  // namespace tavrix::test
