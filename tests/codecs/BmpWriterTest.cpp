#include <gtest/gtest.h>

#include "codecs/Decoding.h"
#include "codecs/TestBytes.h"
#include "imaging/codecs/BmpWriter.h"

namespace tavrix::test {
namespace {

std::vector<std::byte> Written(const Surface& surface) {
    Bytes bytes;
    WriteBmp(surface, [&](std::span<const std::byte> piece) { bytes.Append(piece); });
    return bytes.Get();
}

TEST(BmpWriter, BytesOfASmallPicture) {
    Surface surface(2, 2);
    surface.Row(0)[0] = Red;
    surface.Row(0)[1] = Green;
    surface.Row(1)[0] = Blue;
    surface.Row(1)[1] = WhitePixel;
    Bytes expected;
    expected.Text("BM").U32(54 + 16).U32(0).U32(54);
    expected.U32(40).I32(2).I32(2).U16(1).U16(24).U32(0).U32(16).Zeros(16);
    expected.U8({255, 0, 0, 255, 255, 255, 0, 0}).U8({0, 0, 255, 0, 255, 0, 0, 0});
    EXPECT_EQ(Written(surface), expected.Get());
}

TEST(BmpWriter, ReadsBackTheSame) {
    for (const int width : {1, 2, 3, 4, 15, 16, 17, 1000, 100'003}) {
        // More than one piece for the wide one, one row a piece for the widest.
        Surface surface(width, width > 1000 ? 3 : 333);
        unsigned value = 1;
        for (Pixel& pixel : surface.Pixels())
            pixel = 0xFF000000U | ((value = value * 1664525U + 1013904223U) >> 8U);
        const DecodedPicture decoded = Decode(Written(surface));
        ASSERT_FALSE(decoded.error.has_value());
        EXPECT_TRUE(std::ranges::equal(decoded.picture.pixels->Whole().Pixels(), surface.Pixels()));
    }
}

TEST(BmpWriter, TransparencyShowsTheBackground) {
    Surface surface(2, 1);
    surface.Row(0)[0] = 0x00000000U;
    surface.Row(0)[1] = 0x80000000U;
    EXPECT_EQ(PixelsOf(Decode(Written(surface))), (std::vector<Pixel>{WhitePixel, 0xFF7F7F7FU}));
}

TEST(BmpWriter, OneTransparentPixelOfALongRowIsFound) {
    for (const std::size_t at : {0U, 15U, 16U, 40U}) {
        Surface surface(41, 2);
        surface.Fill(Red);
        surface.Row(1)[at] = 0x00000000U;
        std::vector<Pixel> expected(82, Red);
        expected[41 + at] = WhitePixel;
        EXPECT_EQ(PixelsOf(Decode(Written(surface))), expected) << at;
    }
}

TEST(BmpWriter, FailuresPass) {
    const Surface surface(1, 1);
    EXPECT_THROW(WriteBmp(surface, [](auto) { throw RuntimeError(ErrorNumber::DiskFull); }), RuntimeError);
}

}  // namespace
}  // namespace tavrix::test
