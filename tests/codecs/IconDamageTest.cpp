#include <gtest/gtest.h>

#include "codecs/Decoding.h"
#include "codecs/IconFile.h"
#include "codecs/PngFile.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;

IconEntry GreenBitmap() {
    return {.width = 2,
            .height = 2,
            .bits = 24,
            .colours = Bytes().U8({0, 255, 0, 0, 255, 0, 0, 0}).U8({0, 255, 0, 0, 255, 0, 0, 0}),
            .mask = Bytes().Zeros(8)};
}

PngFile RedPng(int side) {
    PngFile file{.width = side, .height = side, .colourType = 2};
    for (int i = 0; i < side * side; ++i)
        file.rows.insert(file.rows.end(), {255, 0, 0});
    return file;
}

DecodedPicture DecodeAll(std::vector<IconEntry> entries) {
    return Decode(IconFile{.entries = std::move(entries)}.Make());
}

void ExpectGreen(const DecodedPicture& decoded) {
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete) << decoded.status.reason;
    EXPECT_EQ(PixelsOf(decoded), Pixels(4, Green));
}

TEST(IconDamage, CutAtEveryByte) {
    const std::vector<IconFile> files{
        {.entries = {GreenBitmap()}},
        {.entries = {{.inside = RedPng(4).Make()}}},
        {.kind = 2, .entries = {{.inside = RedPng(4).Make()}, GreenBitmap()}},
        {.entries = {{.bits = 32, .colours = Bytes().U32(0x00FF0000).U32(0), .mask = Bytes().U32(0)}}},
        {.entries =
             {{.bits = 4, .palette = Pixels(16, Red), .colours = Bytes().U32(1), .mask = Bytes().U32(1)}}},
    };
    for (const IconFile& file : files) {
        const std::vector<std::byte> bytes = file.Make();
        EXPECT_EQ(Decode(bytes).status.outcome, Outcome::Complete);
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            const DecodedPicture decoded = Decode(std::span(bytes).first(length));
            EXPECT_LE(decoded.status.offset, length);
            EXPECT_NE(decoded.error.has_value(), !decoded.picture.Empty());
            EXPECT_EQ(decoded.error.value_or(ErrorNumber::InvalidPicture), ErrorNumber::InvalidPicture);
        }
    }
}

TEST(IconDamage, FlippedBytes) {
    const std::vector<std::byte> bytes =
        IconFile{.entries = {{.inside = RedPng(4).Make()}, GreenBitmap()}}.Make();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        for (const unsigned flip : {0x01U, 0x10U, 0x80U, 0xFFU}) {
            std::vector<std::byte> flipped = bytes;
            flipped[i] ^= static_cast<std::byte>(flip);
            const DecodedPicture decoded = Decode(flipped);
            EXPECT_NE(decoded.error.has_value(), !decoded.picture.Empty());
        }
    }
}

TEST(IconDamage, WithoutMaskItIsOpaque) {
    IconEntry entry = GreenBitmap();
    entry.mask = {};
    const DecodedPicture decoded = DecodeAll({entry});
    ExpectGreen(decoded);
    EXPECT_FALSE(decoded.picture.transparent);
}

TEST(IconDamage, ABrokenLargerOneDoesNotHideAGoodOne) {
    std::vector<std::byte> cut = RedPng(40).Make();
    cut.resize(cut.size() - 20);
    ExpectGreen(DecodeAll({{.inside = cut}, GreenBitmap()}));

    std::vector<std::byte> torn = RedPng(40).Make();
    torn[60] ^= std::byte{0xFF};
    ExpectGreen(DecodeAll({{.inside = torn}, GreenBitmap()}));

    // Behind everything, so that its pixels are missing.
    ExpectGreen(
        DecodeAll({GreenBitmap(), {.width = 50, .height = 50, .bits = 24, .colours = Bytes().Zeros(9)}}));
}

TEST(IconDamage, APartIsShownWhereNothingIsWhole) {
    const DecodedPicture decoded =
        DecodeAll({{.width = 1, .height = 2, .bits = 24, .colours = Bytes().U8({0, 0, 255, 0})}});
    EXPECT_EQ(decoded.status.outcome, Outcome::Truncated);
    EXPECT_EQ(PixelsOf(decoded), (Pixels{Untouched, Red}));
}

TEST(IconDamage, EntriesThatPointAnywhere) {
    for (const std::uint32_t offset : {0U, 5U, 21U, 100000U, 0x80000000U, 0xFFFFFFFFU}) {
        IconEntry lost = GreenBitmap();
        lost.offset = offset;
        ExpectGreen(DecodeAll({lost, GreenBitmap()}));
        EXPECT_EQ(DecodeAll({lost}).error, ErrorNumber::InvalidPicture);
    }
}

TEST(IconDamage, CountsThatLie) {
    for (const unsigned count : {2U, 255U, 65535U})
        ExpectGreen(Decode(IconFile{.entries = {GreenBitmap()}, .countTold = count}.Make()));
    EXPECT_TRUE(Decode(IconFile{.entries = {GreenBitmap()}, .countTold = 0}.Make()).error.has_value());
    EXPECT_TRUE(Decode(IconFile{.countTold = 3}.Make()).error.has_value());
}

TEST(IconDamage, HeadersThatLie) {
    for (const auto& [width, height] :
         {std::pair{0, 1}, {-1, 1}, {1, 0}, {1 << 20, 1 << 20}, {0x7FFFFFFF, 0x3FFFFFFF}}) {
        IconEntry liar = GreenBitmap();
        liar.width = width;
        liar.height = height;
        ExpectGreen(DecodeAll({liar, GreenBitmap()}));
        EXPECT_TRUE(DecodeAll({liar}).error.has_value());
    }
    for (const unsigned bits : {0U, 3U, 7U, 48U, 65535U})
        ExpectGreen(DecodeAll({{.bits = bits, .colours = Bytes().Zeros(64)}, GreenBitmap()}));
}

TEST(IconDamage, RowsFromTheTop) {
    IconEntry entry{
        .width = 1, .height = -2, .bits = 24, .colours = Bytes().U8({0, 0, 255, 0, 255, 0, 0, 0})};
    entry.mask = Bytes().U8({0x80, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(PixelsOf(DecodeAll({entry})), (Pixels{0, Blue}));
}

TEST(IconDamage, CompressedBitmapsAreRefused) {
    ExpectGreen(DecodeAll({{.width = 9,
                            .height = 9,
                            .bits = 8,
                            .palette = {Red},
                            .colours = Bytes().U8({9, 0, 0, 1}),
                            .compression = 1},
                           GreenBitmap()}));
}

TEST(IconDamage, HugePngInside) {
    std::vector<std::byte> huge = RedPng(1).Make();
    for (std::size_t at = 16; at < 24; ++at)
        huge[at] = at % 4 == 1 ? std::byte{0x10} : std::byte{0};  // a million by a million
    ExpectGreen(DecodeAll({{.inside = huge}, GreenBitmap()}));
    EXPECT_EQ(DecodeAll({{.inside = huge}}).error, ErrorNumber::InvalidPicture);
}

TEST(IconDamage, ManyBrokenEntriesEnd) {
    std::vector<std::byte> torn = RedPng(1000).Make();
    torn.resize(torn.size() / 2);
    IconFile file;
    file.entries.assign(3000, {.inside = torn});
    file.entries.push_back(GreenBitmap());  // too late
    const DecodedPicture decoded = Decode(file.Make());
    EXPECT_FALSE(decoded.error.has_value());
    EXPECT_NE(decoded.status.outcome, Outcome::Complete);
    EXPECT_EQ(decoded.picture.Width(), 1000);
}

}  // namespace
}  // namespace tavrix::test
