#include <gtest/gtest.h>

#include <numeric>
#include <thread>

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

/// A picture whose rows are no whole number of words, so large that a second thread helps.
Surface Large() {
    Surface surface(1999, 1801);
    unsigned value = 7;
    for (Pixel& pixel : surface.Pixels())
        pixel = 0xFF000000U | ((value = value * 1664525U + 1013904223U) >> 8U);
    surface.Row(900)[3] = 0x00000000U;
    return surface;
}

TEST(BmpWriter, ALargePictureHasTheBytesOfItsRows) {
    const Surface surface = Large();
    Bytes expected;
    const std::uint32_t size = 6000 * 1801;
    expected.Text("BM").U32(54 + size).U32(0).U32(54);
    expected.U32(40).I32(1999).I32(1801).U16(1).U16(24).U32(0).U32(size).Zeros(16);
    std::vector<std::byte> row(6000);
    for (int y = 1800; y >= 0; --y) {
        for (std::size_t x = 0; x < 1999; ++x) {
            const Pixel pixel = y == 900 && x == 3 ? WhitePixel : surface.Row(y)[x];
            for (unsigned part = 0; part < 3; ++part)
                row[3 * x + part] = static_cast<std::byte>(pixel >> (8 * part));
        }
        expected.Append(row);
    }
    EXPECT_TRUE(Written(surface) == expected.Get());
    EXPECT_EQ(BmpSize(surface), expected.Get().size());
}

TEST(BmpWriter, AllPiecesButTheLastAreMultiplesOf256KiB) {
    constexpr std::size_t Unit = 256U << 10U;
    // Rows shorter and longer than a piece, and a file that fits its last piece to the byte.
    for (const auto& [width, height] :
         {std::pair{1999, 1801}, {1000, 100}, {100'003, 7}, {87'374, 20}, {87'378, 1}}) {
        const Surface surface(width, height);
        std::vector<std::size_t> sizes;
        WriteBmp(surface, [&](std::span<const std::byte> piece) { sizes.push_back(piece.size()); });
        ASSERT_FALSE(sizes.empty());
        for (std::size_t i = 0; i + 1 < sizes.size(); ++i)
            EXPECT_EQ(sizes[i] % Unit, 0U) << width << "x" << height << ", piece " << i;
        EXPECT_GT(sizes.back(), 0U);
        EXPECT_EQ(std::accumulate(sizes.begin(), sizes.end(), std::size_t{0}), BmpSize(surface));
    }
}

TEST(BmpWriter, FailuresPass) {
    const Surface surface(1, 1);
    EXPECT_THROW(WriteBmp(surface, [](auto) { throw RuntimeError(ErrorNumber::DiskFull); }), RuntimeError);
}

TEST(BmpWriter, FailuresOfEachPieceOfALargePicturePass) {
    const Surface surface = Large();
    for (int failing = 0; failing < 42; ++failing) {
        int pieces = 0;
        const auto write = [&](auto) {
            if (pieces++ == failing) throw RuntimeError(ErrorNumber::DiskFull);
        };
        EXPECT_THROW(WriteBmp(surface, write), RuntimeError) << failing;
        EXPECT_EQ(pieces, failing + 1);
    }
}

TEST(BmpWriter, PiecesAreWrittenByTheCaller) {
    const auto caller = std::this_thread::get_id();
    WriteBmp(Large(), [&](auto) { ASSERT_EQ(std::this_thread::get_id(), caller); });
}

}  // namespace
}  // namespace tavrix::test
