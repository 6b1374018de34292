// Pixels as display servers lay them out.

#include "backends/qt/x11/ServerImage.h"

#include <gtest/gtest.h>

#include <string>

#include "support/ErrorOfCall.h"

namespace tavrix::qt {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr Pixel Colour1 = OpaquePixel(0x12, 0x34, 0x56);
constexpr Pixel Colour2 = OpaquePixel(0xFF, 0x00, 0x80);

void ExpectPixels(const Surface& surface, const std::vector<Pixel>& expected) {
    EXPECT_EQ(std::vector<Pixel>(surface.Pixels().begin(), surface.Pixels().end()), expected);
}

TEST(ServerImage, ThirtyTwoBitsInEachOrder) {
    const Bytes low{0x56, 0x34, 0x12, 0xAA, 0x80, 0x00, 0xFF, 0x00};
    ExpectPixels(FromServerImage({}, 2, 1, low), {Colour1, Colour2});
    const Bytes high{0xAA, 0x12, 0x34, 0x56, 0x00, 0xFF, 0x00, 0x80};
    ExpectPixels(FromServerImage({.highByteFirst = true}, 2, 1, high), {Colour1, Colour2});
    // Red and blue the other way round.
    const Bytes swapped{0x12, 0x34, 0x56, 0x00, 0xFF, 0x00, 0x80, 0x00};
    ExpectPixels(FromServerImage({.red = 0xFF, .green = 0xFF00, .blue = 0xFF0000}, 2, 1, swapped),
                 {Colour1, Colour2});
}

TEST(ServerImage, TwentyFourBitsWithFilledRows) {
    const Bytes bytes{0x56, 0x34, 0x12, 0xEE, 0x80, 0x00, 0xFF, 0xEE};
    const ServerImageLayout layout{.bitsPerPixel = 24};
    EXPECT_EQ(layout.BytesPerRow(1), 4U);
    EXPECT_EQ(layout.BytesPerRow(5), 16U);
    ExpectPixels(FromServerImage(layout, 1, 2, bytes), {Colour1, Colour2});
}

TEST(ServerImage, SixteenBitsReachTheFullRange) {
    const ServerImageLayout layout{.bitsPerPixel = 16, .red = 0xF800, .green = 0x07E0, .blue = 0x001F};
    EXPECT_EQ(layout.BytesPerRow(3), 8U);
    const Bytes bytes{0xFF, 0xFF, 0x00, 0x00, 0x00, 0x80, 0xEE, 0xEE};
    ExpectPixels(FromServerImage(layout, 3, 1, bytes),
                 {OpaquePixel(255, 255, 255), OpaquePixel(0, 0, 0), OpaquePixel(132, 0, 0)});
}

TEST(ServerImage, TenBitsOfAColour) {
    const ServerImageLayout layout{.red = 0x3FF00000, .green = 0x000FFC00, .blue = 0x000003FF};
    const std::uint32_t number = 1023U << 20U | 512U << 10U;
    Bytes bytes;
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<std::uint8_t>(number >> shift));
    ExpectPixels(FromServerImage(layout, 1, 1, bytes), {OpaquePixel(255, 128, 0)});
}

TEST(ServerImage, WhatIsSentComesBack) {
    Surface surface(17, 5);
    unsigned number = 7;
    for (Pixel& pixel : surface.Pixels()) {
        number = number * 1103515245U + 12345U;
        // Colours that 5 bits hold exactly: what they stand for is rounded once.
        const auto exact = [](unsigned bits) { return ((bits & 31U) * 255 + 15) / 31; };
        pixel = OpaquePixel(exact(number >> 8U), exact(number >> 13U), exact(number >> 18U));
    }
    const std::vector<Pixel> pixels(surface.Pixels().begin(), surface.Pixels().end());
    for (const ServerImageLayout& layout :
         {ServerImageLayout{}, ServerImageLayout{.highByteFirst = true},
          ServerImageLayout{.bitsPerPixel = 24},
          ServerImageLayout{.bitsPerPixel = 24, .rowBits = 8, .highByteFirst = true},
          ServerImageLayout{.red = 0xFF, .green = 0xFF00, .blue = 0xFF0000},
          ServerImageLayout{.bitsPerPixel = 16, .red = 0x7C00, .green = 0x03E0, .blue = 0x001F}}) {
        Bytes bytes = ToServerImage(layout, surface, 0, 2);
        const Bytes rest = ToServerImage(layout, surface, 2, 3);
        bytes.insert(bytes.end(), rest.begin(), rest.end());
        ExpectPixels(FromServerImage(layout, 17, 5, bytes), pixels);
    }
}

TEST(ServerImage, WhatCannotBeToldIsRefused) {
    const Bytes bytes(64);
    for (const ServerImageLayout& layout :
         {ServerImageLayout{.bitsPerPixel = 8}, ServerImageLayout{.red = 0, .green = 0, .blue = 0},
          ServerImageLayout{.red = 0xF0F000}, ServerImageLayout{.rowBits = 0}}) {
        EXPECT_FALSE(layout.Known());
        EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(FromServerImage(layout, 2, 2, bytes)); }), 481);
    }
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(FromServerImage({}, 4, 4, bytes)); }), 0);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(FromServerImage({}, 5, 4, bytes)); }), 481);
}

}  // namespace
}  // namespace tavrix::qt
