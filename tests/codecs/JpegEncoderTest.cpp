#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <numeric>

#include "codecs/Decoding.h"
#include "codecs/TestBytes.h"
#include "imaging/codecs/JpegEncoder.h"

namespace tavrix::test {
namespace {

std::vector<std::byte> Encoded(const Surface& surface, int quality) {
    Bytes bytes;
    EXPECT_TRUE(EncodeJpeg(surface, quality, [&](std::span<const std::byte> piece) {
        bytes.Append(piece);
        return true;
    }));
    return bytes.Get();
}

Surface Noise(int width, int height) {
    Surface surface(width, height);
    unsigned value = 1;
    for (Pixel& pixel : surface.Pixels())
        pixel = 0xFF000000U | ((value = value * 1664525U + 1013904223U) >> 8U);
    return surface;
}

Surface Slopes(int width, int height) {
    Surface surface(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            surface.Row(y)[static_cast<std::size_t>(x)] =
                OpaquePixel(static_cast<unsigned>(255 * x / width), static_cast<unsigned>(255 * y / height),
                            static_cast<unsigned>(255 - 255 * x / width));
        }
    }
    return surface;
}

/// The differences of the colours' parts.
std::vector<int> Differences(const Surface& a, const Surface& b) {
    std::vector<int> differences;
    for (std::size_t i = 0; i < a.Pixels().size(); ++i) {
        for (const unsigned shift : {0U, 8U, 16U}) {
            const auto part = [&](Pixel pixel) { return static_cast<int>((pixel >> shift) & 0xFFU); };
            differences.push_back(std::abs(part(a.Pixels()[i]) - part(b.Pixels()[i])));
        }
    }
    return differences;
}

int WorstDifference(const Surface& a, const Surface& b) {
    return std::ranges::max(Differences(a, b));
}

int TotalDifference(const Surface& a, const Surface& b) {
    const std::vector<int> differences = Differences(a, b);
    return std::accumulate(differences.begin(), differences.end(), 0);
}

/// The offset of a marker's content, behind its length; 0 when there is none.
std::size_t ContentOf(const std::vector<std::byte>& file, unsigned marker) {
    for (std::size_t at = 2; at + 4 <= file.size() && file[at] == std::byte{0xFF};) {
        const auto code = std::to_integer<unsigned>(file[at + 1]);
        if (code == marker) return at + 4;
        if (code == 0xDA) break;
        at += 2 + (std::to_integer<std::size_t>(file[at + 2]) << 8U) +
              std::to_integer<std::size_t>(file[at + 3]);
    }
    return 0;
}

TEST(JpegEncoder, ReadsBackNearlyTheSame) {
    for (const int width : {1, 2, 7, 8, 17, 333}) {
        const Surface surface = Slopes(width, 150);
        const DecodedPicture decoded = Decode(Encoded(surface, 100));
        ASSERT_FALSE(decoded.error.has_value());
        EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
        ASSERT_EQ(decoded.picture.Width(), width);
        ASSERT_EQ(decoded.picture.Height(), 150);
        EXPECT_LE(WorstDifference(decoded.picture.pixels->Whole(), surface), 4);
    }
}

TEST(JpegEncoder, EachPartOfTheColourIsInItsPlace) {
    for (const Pixel colour : {Red, Green, Blue, WhitePixel, BlackPixel, 0xFF204080U}) {
        Surface surface(16, 16);
        surface.Fill(colour);
        EXPECT_LE(WorstDifference(Decode(Encoded(surface, 80)).picture.pixels->Whole(), surface), 3);
    }
}

TEST(JpegEncoder, BetterQualityIsLargerAndNearer) {
    const Surface surface = Noise(64, 64);
    std::size_t sizeBefore = 0;
    int before = std::numeric_limits<int>::max();
    for (const int quality : {1, 10, 50, 89, 90, 100}) {
        const std::vector<std::byte> file = Encoded(surface, quality);
        EXPECT_GT(file.size(), sizeBefore);
        sizeBefore = file.size();
        const int difference = TotalDifference(Decode(file).picture.pixels->Whole(), surface);
        EXPECT_LT(difference, before);
        before = difference;
    }
}

TEST(JpegEncoder, QualityIsBroughtIntoItsRange) {
    const Surface surface = Noise(32, 32);
    EXPECT_EQ(Encoded(surface, 0), Encoded(surface, 1));
    EXPECT_EQ(Encoded(surface, -1000), Encoded(surface, 1));
    EXPECT_EQ(Encoded(surface, 101), Encoded(surface, 100));
}

TEST(JpegEncoder, ColoursHaveHalfTheResolutionBelow90) {
    const Surface surface = Noise(16, 16);
    const auto sampling = [&](int quality) {
        const std::vector<std::byte> file = Encoded(surface, quality);
        const std::size_t frame = ContentOf(file, 0xC0);  // baseline
        EXPECT_NE(frame, 0U);
        std::vector<unsigned> factors;
        for (std::size_t part = 0; part < 3; ++part)
            factors.push_back(std::to_integer<unsigned>(file[frame + 6 + 3 * part + 1]));
        return factors;
    };
    for (const int quality : {1, 80, 89})
        EXPECT_EQ(sampling(quality), (std::vector<unsigned>{0x22, 0x11, 0x11}));
    for (const int quality : {90, 100})
        EXPECT_EQ(sampling(quality), (std::vector<unsigned>{0x11, 0x11, 0x11}));
}

TEST(JpegEncoder, JfifWithSquarePixelsAndNothingElse) {
    const std::vector<std::byte> file = Encoded(Noise(8, 8), 80);
    const std::size_t jfif = ContentOf(file, 0xE0);
    ASSERT_NE(jfif, 0U);
    const Bytes expected = Bytes().Text("JFIF").U8({0, 1, 1, 0, 0, 1, 0, 1, 0, 0});
    EXPECT_TRUE(std::equal(expected.Get().begin(), expected.Get().end(),
                           file.begin() + static_cast<std::ptrdiff_t>(jfif)));
    for (unsigned marker = 0xE1; marker <= 0xEF; ++marker)
        EXPECT_EQ(ContentOf(file, marker), 0U);
    EXPECT_EQ(ContentOf(file, 0xFE), 0U);
    EXPECT_EQ(file[file.size() - 2], std::byte{0xFF});
    EXPECT_EQ(file.back(), std::byte{0xD9});
}

TEST(JpegEncoder, AlphaIsNotLookedAt) {
    Surface surface = Noise(20, 20);
    const std::vector<std::byte> opaque = Encoded(surface, 90);
    for (Pixel& pixel : surface.Pixels())
        pixel &= 0x55FFFFFFU;
    EXPECT_EQ(Encoded(surface, 90), opaque);
}

TEST(JpegEncoder, EndsWhenTheWriterSaysNo) {
    const Surface surface = Noise(500, 500);
    const std::size_t pieces = [&] {
        std::size_t count = 0;
        EXPECT_TRUE(EncodeJpeg(surface, 100, [&](auto) {
            ++count;
            return true;
        }));
        return count;
    }();
    ASSERT_GT(pieces, 3U);
    for (std::size_t last = 1; last <= pieces; ++last) {
        std::size_t calls = 0;
        EXPECT_FALSE(EncodeJpeg(surface, 100, [&](auto) { return ++calls < last; }));
        EXPECT_EQ(calls, last);
    }
}

TEST(JpegEncoder, WhatTheFormatCannotHoldWritesNothing) {
    const auto refused = [](const Surface& surface) {
        bool written = false;
        const bool done = EncodeJpeg(surface, 80, [&](auto) { return written = true; });
        return !done && !written;
    };
    EXPECT_TRUE(refused(Surface()));
    EXPECT_TRUE(refused(Surface(65501, 1)));
    EXPECT_TRUE(refused(Surface(1, 65501)));
    EXPECT_EQ(Decode(Encoded(Surface(65500, 1), 10)).picture.Width(), 65500);
}

}  // namespace
}  // namespace tavrix::test
