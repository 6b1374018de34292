#include <gtest/gtest.h>

#include <algorithm>

#include "codecs/Decoding.h"
#include "codecs/IconFile.h"
#include "codecs/PngFile.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;

void ExpectComplete(const DecodedPicture& decoded, const Pixels& expected) {
    ASSERT_FALSE(decoded.error.has_value()) << decoded.status.reason;
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete) << decoded.status.reason;
    EXPECT_EQ(decoded.picture.format, "ico");
    EXPECT_EQ(decoded.picture.frames, 1);
    EXPECT_EQ(PixelsOf(decoded), expected);
    EXPECT_EQ(decoded.picture.transparent,
              std::ranges::any_of(expected, [](Pixel pixel) { return pixel >> 24U != 255; }));
}

DecodedPicture DecodeOne(IconEntry entry) {
    return Decode(IconFile{.entries = {std::move(entry)}}.Make());
}

Bytes Mask(unsigned bits) {
    return Bytes().U8({bits, 0, 0, 0});
}

IconEntry OfOneColour(int side, unsigned bits, Pixel colour) {
    IconEntry entry{.width = side, .height = side, .bits = bits};
    if (bits <= 8) entry.palette = Pixels(std::size_t{1} << bits, colour);
    const std::size_t stride = (static_cast<std::size_t>(side) * bits + 31) / 32 * 4;
    for (int y = 0; y < side; ++y) {
        if (bits <= 8) {
            entry.colours.Zeros(stride);
            continue;
        }
        for (int x = 0; x < side; ++x) {
            entry.colours.U8({colour & 0xFFU, (colour >> 8U) & 0xFFU, (colour >> 16U) & 0xFFU});
            if (bits == 32) entry.colours.U8({255});
        }
        if (bits == 24) entry.colours.Zeros(stride - 3 * static_cast<std::size_t>(side));
    }
    entry.mask.Zeros((static_cast<std::size_t>(side) + 31) / 32 * 4 * static_cast<std::size_t>(side));
    return entry;
}

TEST(Icon, OneBit) {
    ExpectComplete(DecodeOne({.width = 4,
                              .bits = 1,
                              .palette = {Red, Blue},
                              .colours = Bytes().U8({0b01010000, 0, 0, 0}),
                              .mask = Mask(0b00110000)}),
                   {Red, Blue, 0, 0});
}

TEST(Icon, FourBits) {
    ExpectComplete(DecodeOne({.width = 3,
                              .bits = 4,
                              .palette = Pixels{Red, Green, Blue},
                              .colours = Bytes().U8({0x21, 0x00, 0, 0}),
                              .mask = Mask(0b00100000)}),
                   {Blue, Green, 0});
}

TEST(Icon, EightBitsFromTheBottom) {
    ExpectComplete(DecodeOne({.width = 2,
                              .height = 2,
                              .bits = 8,
                              .palette = Pixels{Red, Green, Blue, WhitePixel},
                              .colours = Bytes().U8({0, 1, 0, 0, 2, 3, 0, 0}),
                              .mask = Bytes().U8({0x40, 0, 0, 0, 0x80, 0, 0, 0})}),
                   {0, WhitePixel, Red, 0});
}

TEST(Icon, SixteenBits) {
    ExpectComplete(DecodeOne({.bits = 16, .colours = Bytes().U16(0x7C00).U16(0x83E0), .mask = Mask(0)}),
                   {Red, Green});
}

TEST(Icon, TwentyFourBits) {
    ExpectComplete(
        DecodeOne({.bits = 24, .colours = Bytes().U8({0, 0, 255, 0, 255, 0, 0, 0}), .mask = Mask(0x80)}),
        {0, Green});
}

TEST(Icon, ThirtyTwoBitsHaveAnAlphaPartAndNoMask) {
    ExpectComplete(
        DecodeOne({.bits = 32, .colours = Bytes().U32(0x80FF0000).U32(0xFF00FF00), .mask = Mask(0xFF)}),
        {0x80FF0000U, Green});
}

TEST(Icon, ThirtyTwoBitsWithoutAlphaHaveAMask) {
    ExpectComplete(
        DecodeOne({.bits = 32, .colours = Bytes().U32(0x00FF0000).U32(0x0000FF00), .mask = Mask(0x40)}),
        {Red, 0});
    ExpectComplete(
        DecodeOne({.bits = 32, .colours = Bytes().U32(0x00FF0000).U32(0x0000FF00), .mask = Mask(0)}),
        {Red, Green});
}

TEST(Icon, Cursor) {
    const DecodedPicture decoded = Decode(IconFile{.kind = 2, .entries = {OfOneColour(3, 4, Green)}}.Make());
    EXPECT_EQ(decoded.picture.format, "cur");
    EXPECT_EQ(PixelsOf(decoded), Pixels(9, Green));
    EXPECT_TRUE(Decode(IconFile{.kind = 3, .entries = {OfOneColour(3, 4, Green)}}.Make()).error.has_value());
}

TEST(Icon, APictureOfAnotherKindThatStartsAlike) {
    // True colour without a palette, 2 by 2: no cursor since it would have no images.
    const Bytes targa = Bytes().U8({0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 2, 0, 24, 0}).Zeros(12);
    EXPECT_EQ(Decode(targa.Get()).status.reason, "no known format");
}

TEST(Icon, TheLargestThenTheDeepest) {
    const IconFile file{.entries = {OfOneColour(2, 32, Red), OfOneColour(3, 4, Blue),
                                    OfOneColour(3, 24, Green), OfOneColour(3, 8, Blue),
                                    OfOneColour(1, 32, Red)}};
    ExpectComplete(Decode(file.Make()), Pixels(9, Green));
}

TEST(Icon, OfEquallyDeepOnesTheOneWithMoreColoursOtherwiseTheFirst) {
    IconFile file{.entries = {OfOneColour(2, 4, Red), OfOneColour(2, 4, Blue), OfOneColour(2, 4, Green)}};
    ExpectComplete(Decode(file.Make()), Pixels(4, Red));
    file.entries[0].coloursTold = 2;
    file.entries[1].coloursTold = 16;
    file.entries[2].coloursTold = 8;
    ExpectComplete(Decode(file.Make()), Pixels(4, Blue));
}

/// Of all pairs of kinds, in both orders, and whatever the directory tells.
TEST(Icon, TheDeepestOfOneSizeAlsoAmongPngOnes) {
    const auto png = [](int depth, int colourType, std::vector<std::uint8_t> row, Pixel colour) {
        PngFile file{.width = 2, .height = 2, .depth = depth, .colourType = colourType};
        file.rows = row;
        file.rows.insert(file.rows.end(), row.begin(), row.end());
        if (colourType == 3) file.palette = {colour, colour};
        return IconEntry{.inside = file.Make()};
    };
    // From the shallowest to the deepest.
    const std::vector<std::pair<IconEntry, Pixel>> images{
        {png(1, 3, {0}, Red), Red},
        {OfOneColour(2, 4, Green), Green},
        {png(8, 3, {0, 1}, Blue), Blue},
        {png(8, 4, {0, 255, 0, 255}, BlackPixel), BlackPixel},
        {png(8, 2, {0, 255, 0, 0, 255, 0}, Green), Green},
        {png(8, 6, {255, 0, 0, 255, 255, 0, 0, 255}, Red), Red},
        {png(16, 2, {0, 0, 0, 0, 255, 255, 0, 0, 0, 0, 255, 255}, Blue), Blue},
    };
    for (std::size_t low = 0; low < images.size(); ++low) {
        for (std::size_t high = low + 1; high < images.size(); ++high) {
            SCOPED_TRACE(testing::Message() << low << " and " << high);
            IconFile file{.entries = {images[low].first, images[high].first}};
            ExpectComplete(Decode(file.Make()), Pixels(4, images[high].second));
            std::ranges::reverse(file.entries);
            ExpectComplete(Decode(file.Make()), Pixels(4, images[high].second));
            file.entries[1].coloursTold = 255;
            file.entries[1].sizeTold = 1U << 30U;
            ExpectComplete(Decode(file.Make()), Pixels(4, images[high].second));
        }
    }
}

TEST(Icon, SizesInTheDirectoryDoNotCount) {
    IconFile file{.entries = {OfOneColour(1, 24, Red), OfOneColour(2, 24, Green)}};
    file.entries[0].sideTold = 0;
    file.entries[1].sideTold = 1;
    file.entries[1].sizeTold = 0xFFFFFFFF;
    ExpectComplete(Decode(file.Make()), Pixels(4, Green));
}

TEST(Icon, Of256Pixels) {
    const DecodedPicture decoded = DecodeOne(OfOneColour(256, 32, Blue));
    ExpectComplete(decoded, Pixels(256 * 256, Blue));
}

TEST(Icon, PngOfEveryKind) {
    const auto decode = [](const PngFile& file) { return DecodeOne({.inside = file.Make()}); };
    ExpectComplete(decode({.width = 2,
                           .height = 1,
                           .colourType = 6,
                           .rows = {255, 0, 0, 255, 0, 255, 0, 128},
                           .gamma = true}),
                   {Red, 0x8000FF00U});
    ExpectComplete(decode({.width = 2, .height = 1, .colourType = 2, .rows = {255, 0, 0, 0, 0, 255}}),
                   {Red, Blue});
    ExpectComplete(decode({.width = 2,
                           .height = 1,
                           .depth = 16,
                           .colourType = 2,
                           .rows = {0x12, 0xFF, 0x34, 0, 0x56, 0, 255, 255, 255, 255, 255, 255}}),
                   {OpaquePixel(0x12, 0x34, 0x56), WhitePixel});
    ExpectComplete(decode({.width = 2, .height = 1, .colourType = 4, .rows = {255, 255, 0, 7}}),
                   {WhitePixel, 0x07000000U});
    ExpectComplete(decode({.width = 3, .height = 1, .depth = 1, .colourType = 0, .rows = {0b01000000}}),
                   {BlackPixel, WhitePixel, BlackPixel});
    ExpectComplete(decode({.width = 3,
                           .height = 1,
                           .depth = 4,
                           .colourType = 3,
                           .rows = {0x01, 0x20},
                           .palette = {Red, Green, Blue}}),
                   {Red, Green, Blue});
    ExpectComplete(decode({.width = 2,
                           .height = 1,
                           .colourType = 3,
                           .rows = {1, 0},
                           .palette = {Red, Green},
                           .alpha = {0x40}}),
                   {Green, 0x40FF0000U});
}

TEST(Icon, InterlacedPng) {
    PngFile file{.width = 9, .height = 9, .colourType = 2, .interlaced = true};
    Pixels expected;
    for (unsigned i = 0; i < 81; ++i) {
        file.rows.insert(file.rows.end(), {static_cast<std::uint8_t>(i), 0, 9});
        expected.push_back(OpaquePixel(i, 0, 9));
    }
    ExpectComplete(DecodeOne({.inside = file.Make()}), expected);
}

TEST(Icon, PngAmongBitmaps) {
    const PngFile png{
        .width = 2, .height = 2, .colourType = 2, .rows = {255, 0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0}};
    ExpectComplete(Decode(IconFile{.entries = {OfOneColour(2, 8, Blue), {.inside = png.Make()}}}.Make()),
                   Pixels(4, Red));
    ExpectComplete(Decode(IconFile{.entries = {OfOneColour(3, 8, Blue), {.inside = png.Make()}}}.Make()),
                   Pixels(9, Blue));
}

}  // namespace
}  // namespace tavrix::test
