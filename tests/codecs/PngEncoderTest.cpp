#include "imaging/codecs/PngEncoder.h"

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "codecs/TestBytes.h"

namespace tavrix::test {
namespace {

Surface Noise(int width, int height) {
    Surface surface(width, height);
    unsigned value = 1;
    for (Pixel& pixel : surface.Pixels())
        pixel = 0xFF000000U | ((value = value * 1664525U + 1013904223U) >> 8U);
    return surface;
}

/// The library's own reader, which knows nothing of ours.
std::vector<Pixel> Read(const std::vector<std::byte>& bytes, int width, int height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_NE(png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()), 0);
    EXPECT_EQ(static_cast<int>(image.width), width);
    EXPECT_EQ(static_cast<int>(image.height), height);
    image.format = PNG_FORMAT_BGRA;
    std::vector<Pixel> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    EXPECT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0);
    return pixels;
}

class PngEncoderTest : public ::testing::TestWithParam<PngPacking> {
  protected:
    static std::vector<std::byte> Encoded(const Surface& surface) {
        Bytes bytes;
        EXPECT_TRUE(EncodePng(surface, GetParam(), [&](std::span<const std::byte> piece) {
            bytes.Append(piece);
            return true;
        }));
        return bytes.Get();
    }
};

INSTANTIATE_TEST_SUITE_P(Packings, PngEncoderTest, ::testing::Values(PngPacking::Stored, PngPacking::Packed));

TEST_P(PngEncoderTest, KeepsEveryPixel) {
    for (const auto& [width, height] : {std::pair{1, 1}, {7, 5}, {1, 300}, {300, 1}, {640, 480}}) {
        const Surface surface = Noise(width, height);
        EXPECT_TRUE(std::ranges::equal(Read(Encoded(surface), width, height), surface.Pixels()));
    }
}

TEST_P(PngEncoderTest, TakesAllPixelsForOpaque) {
    Surface surface(2, 1);
    surface.Row(0)[1] = 0x40123456U;
    const std::vector<Pixel> expected{0xFF000000U, 0xFF123456U};
    EXPECT_EQ(Read(Encoded(surface), 2, 1), expected);
}

TEST_P(PngEncoderTest, StopsWhereItIsTold) {
    const Surface surface = Noise(640, 480);
    int pieces = 0;
    EXPECT_TRUE(EncodePng(surface, GetParam(), [&](std::span<const std::byte>) { return ++pieces > 0; }));
    for (int last = 0; last < pieces; ++last) {
        int taken = 0;
        EXPECT_FALSE(
            EncodePng(surface, GetParam(), [&](std::span<const std::byte>) { return taken++ < last; }));
        EXPECT_EQ(taken, last + 1);
    }
}

TEST_P(PngEncoderTest, WritesNothingOfAnEmptySurface) {
    bool written = false;
    EXPECT_FALSE(
        EncodePng(Surface(), GetParam(), [&](std::span<const std::byte>) { return written = true; }));
    EXPECT_FALSE(written);
}

TEST(PngPackingTest, PacksOrStores) {
    Surface plain(500, 500);
    std::vector<std::size_t> sizes;
    for (const PngPacking packing : {PngPacking::Stored, PngPacking::Packed}) {
        std::size_t& size = sizes.emplace_back(0);
        EXPECT_TRUE(EncodePng(plain, packing, [&](std::span<const std::byte> piece) {
            size += piece.size();
            return true;
        }));
    }
    EXPECT_GT(sizes[0], 500U * 500 * 3);
    EXPECT_LT(sizes[0], 500U * 500 * 3 + 2000);
    EXPECT_LT(sizes[1], 10000U);
}

}  // namespace
}  // namespace tavrix::test
