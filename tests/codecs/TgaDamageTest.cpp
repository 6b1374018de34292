#include <gtest/gtest.h>

#include "codecs/Decoding.h"
#include "codecs/TgaFile.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;

DecodedPicture DecodeTgaFile(const TgaFile& file) {
    return Decode(file.Make(), "a.tga");
}

std::vector<TgaFile> SmallFiles() {
    const Bytes twelve = Bytes().U8({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    const Bytes map = Bytes().U8({10, 11, 12, 13, 14, 15, 16, 17});
    return {
        {.pixels = twelve},
        {.descriptor = 0x10, .id = Bytes().Text("id"), .pixels = twelve},
        {.bits = 16, .pixels = twelve},
        {.width = 3, .height = 1, .bits = 32, .descriptor = 0x38, .pixels = twelve},
        {.type = 3, .width = 4, .height = 3, .bits = 8, .pixels = twelve},
        {.type = 1, .bits = 8, .mapLength = 2, .mapBits = 32, .map = map, .pixels = Bytes().U8({0, 1, 0, 1})},
        {.type = 10, .descriptor = 0, .pixels = Bytes().U8({0x80, 1, 2, 3, 0x02}).Append(twelve.Get())},
        {.type = 11, .bits = 8, .descriptor = 0x10, .pixels = Bytes().U8({0x82, 9, 0x00, 8})},
        {.type = 9,
         .bits = 8,
         .mapLength = 2,
         .mapBits = 32,
         .map = map,
         .pixels = Bytes().U8({0x00, 1, 0x82, 1})},
    };
}

TEST(TgaDamage, CutAtEveryByte) {
    for (const TgaFile& file : SmallFiles()) {
        const std::vector<std::byte> bytes = file.Make();
        const DecodedPicture whole = Decode(bytes, "a.tga");
        ASSERT_EQ(whole.status.outcome, Outcome::Complete);
        const Pixels expected = PixelsOf(whole);
        std::ptrdiff_t drawnBefore = 0;
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            SCOPED_TRACE(length);
            const DecodedPicture decoded = Decode(std::span(bytes).first(length), "a.tga");
            EXPECT_LE(decoded.status.offset, length);
            if (decoded.error) {
                EXPECT_EQ(decoded.error, ErrorNumber::InvalidPicture);
                EXPECT_EQ(drawnBefore, 0);
                continue;
            }
            const Pixels pixels = PixelsOf(decoded);
            ASSERT_EQ(pixels.size(), expected.size());
            for (std::size_t i = 0; i < pixels.size(); ++i)
                EXPECT_TRUE(pixels[i] == expected[i] || pixels[i] == Untouched);
            const auto drawn = std::ranges::count_if(pixels, [](Pixel pixel) { return pixel != Untouched; });
            EXPECT_GE(drawn, drawnBefore);
            EXPECT_EQ(decoded.status.outcome, pixels == expected ? Outcome::Complete : Outcome::Truncated);
            drawnBefore = drawn;
        }
        EXPECT_GT(drawnBefore, 0);
    }
}

TEST(TgaDamage, CutPixelsAreShownAsFarAsTheyGoFromTheirCorner) {
    const auto cut = [](unsigned descriptor) {
        const DecodedPicture decoded = DecodeTgaFile(
            {.type = 3, .width = 3, .bits = 8, .descriptor = descriptor, .pixels = Bytes().U8({1, 2, 3, 4})});
        EXPECT_EQ(decoded.status.outcome, Outcome::Truncated);
        EXPECT_EQ(decoded.status.offset, 22U);
        return PixelsOf(decoded);
    };
    const auto grey = [](unsigned value) { return OpaquePixel(value, value, value); };
    EXPECT_EQ(cut(0x20), (Pixels{grey(1), grey(2), grey(3), grey(4), 0, 0}));
    EXPECT_EQ(cut(0x30), (Pixels{grey(3), grey(2), grey(1), 0, 0, grey(4)}));
    EXPECT_EQ(cut(0x00), (Pixels{grey(4), 0, 0, grey(1), grey(2), grey(3)}));
    EXPECT_EQ(cut(0x10), (Pixels{0, 0, grey(4), grey(3), grey(2), grey(1)}));
}

TEST(TgaDamage, OfACutPictureWithoutAlphaOnlyWhatIsThereGetsOpaque) {
    EXPECT_EQ(PixelsOf(DecodeTgaFile(
                  {.bits = 32, .descriptor = 0x28, .pixels = Bytes().U32(0xFF0000).U32(0xFF).U32(0xFF00)})),
              (Pixels{Red, Blue, Green, Untouched}));
}

TEST(TgaDamage, HeadersThatMakeNoSense) {
    const Bytes pixels = Bytes().Zeros(64);
    const Bytes map = Bytes().Zeros(6);
    const std::vector<TgaFile> files{
        {.type = 0, .pixels = pixels},
        {.type = 4, .pixels = pixels},
        {.type = 32, .pixels = pixels},
        {.type = 33, .pixels = pixels},
        {.width = 0, .pixels = pixels},
        {.height = 0, .pixels = pixels},
        {.bits = 8, .pixels = pixels},
        {.bits = 0, .pixels = pixels},
        {.bits = 255, .pixels = pixels},
        {.type = 3, .bits = 24, .pixels = pixels},
        {.type = 11, .bits = 32, .pixels = pixels},
        {.descriptor = 0x60, .pixels = pixels},
        {.descriptor = 0xA0, .pixels = pixels},
        {.mapType = 2, .pixels = pixels},
        {.type = 1, .bits = 8, .pixels = pixels},
        {.type = 1, .bits = 8, .mapType = 1, .mapBits = 24, .pixels = pixels},
        {.type = 1, .bits = 8, .mapType = 0, .mapLength = 2, .mapBits = 24, .map = map, .pixels = pixels},
        {.type = 1, .bits = 8, .mapLength = 2, .mapBits = 8, .map = map, .pixels = pixels},
        {.type = 1, .bits = 24, .mapLength = 2, .mapBits = 24, .map = map, .pixels = pixels},
    };
    for (const TgaFile& file : files) {
        const DecodedPicture decoded = DecodeTgaFile(file);
        EXPECT_EQ(decoded.error, ErrorNumber::InvalidPicture);
        EXPECT_EQ(decoded.status.outcome, Outcome::Corrupt);
    }
}

TEST(TgaDamage, SizesBeyondTheLimitsAreRefused) {
    EXPECT_EQ(DecodeTgaFile({.width = 65535, .height = 65535, .pixels = Bytes().Zeros(64)}).error,
              ErrorNumber::OutOfMemory);
}

TEST(TgaDamage, AHugePictureOfNothingStaysUntouched) {
    const DecodedPicture decoded =
        DecodeTgaFile({.type = 10, .width = 16000, .height = 16000, .pixels = Bytes().U8({0xFF, 0, 0, 255})});
    ASSERT_FALSE(decoded.error.has_value());
    EXPECT_EQ(decoded.status.outcome, Outcome::Truncated);
    EXPECT_EQ(decoded.picture.pixels->Whole().Row(0)[127], Red);
    EXPECT_EQ(decoded.picture.pixels->Whole().Row(15999)[0], Untouched);
}

TEST(TgaDamage, AFooterThatPointsAway) {
    TgaFile file{.bits = 32, .descriptor = 0x28, .pixels = Bytes().U32(0x80FF0000).U32(0).U32(0).U32(0)};
    for (const std::uint32_t extension : {1U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        std::vector<std::byte> bytes = file.Make();
        const Bytes footer = Bytes().U32(extension).U32(0).Text("TRUEVISION-XFILE.").U8({0});
        bytes.insert(bytes.end(), footer.Get().begin(), footer.Get().end());
        EXPECT_EQ(PixelsOf(Decode(bytes, "a.tga")).front(), 0x80FF0000U);
    }
}

TEST(TgaDamage, TheFileEndsInsideTheMap) {
    for (std::size_t bytes = 0; bytes < 8; ++bytes) {
        const DecodedPicture decoded =
            DecodeTgaFile({.type = 1, .bits = 8, .mapLength = 2, .mapBits = 32, .map = Bytes().Zeros(bytes)});
        EXPECT_EQ(decoded.error, ErrorNumber::InvalidPicture);
        EXPECT_EQ(decoded.status.offset, 18 + bytes);
    }
}

TEST(TgaDamage, NoPixelsAtAll) {
    EXPECT_EQ(DecodeTgaFile({}).error, ErrorNumber::InvalidPicture);
    EXPECT_EQ(Decode({}, "a.tga").error, ErrorNumber::InvalidPicture);
    // A packet of which the value is missing.
    EXPECT_EQ(DecodeTgaFile({.type = 10, .pixels = Bytes().U8({0x81, 1, 2})}).error,
              ErrorNumber::InvalidPicture);
}

}  // namespace
}  // namespace tavrix::test
