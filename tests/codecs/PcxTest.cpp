#include <gtest/gtest.h>

#include "codecs/Decoding.h"
#include "codecs/PcxFile.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;

const Bytes Sixteen = [] {
    Bytes palette;
    for (unsigned i = 0; i < 16; ++i)
        palette.U8({i, 16 * i, 255 - i});
    return palette;
}();

Pixel OfSixteen(unsigned i) {
    return OpaquePixel(i, 16 * i, 255 - i);
}

Pixels PixelsOfFile(const PcxFile& file) {
    const DecodedPicture decoded = Decode(file.Make(), "C:\\A.Pcx");
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
    EXPECT_EQ(decoded.picture.format, "pcx");
    EXPECT_FALSE(decoded.picture.transparent);
    return PixelsOf(decoded);
}

TEST(Pcx, EightBitsWithThePaletteAtTheEnd) {
    EXPECT_EQ(PixelsOfFile({.lines = Bytes().U8({0, 1, 2, 3}), .palette = {Red, Green, Blue, WhitePixel}}),
              (Pixels{Red, Green, Blue, WhitePixel}));
}

TEST(Pcx, EightBitsWithoutAPaletteAreGrey) {
    EXPECT_EQ(PixelsOfFile({.lines = Bytes().U8({0, 1, 0xC1, 0xFF, 0xC1, 0x0C})}),
              (Pixels{BlackPixel, 0xFF010101U, WhitePixel, 0xFF0C0C0CU}));
    // The mark must be where the palette begins.
    std::vector<std::byte> bytes = PcxFile{.lines = Bytes().U8({0, 1, 2, 3}), .palette = {Red}}.Make();
    bytes.push_back(std::byte{0});
    EXPECT_EQ(PixelsOf(Decode(bytes, "a.pcx")).front(), BlackPixel);
}

TEST(Pcx, Runs) {
    // Bytes from 0xC0 on are runs of one; runs go on in the next line, and runs of nothing are no end.
    EXPECT_EQ(
        PixelsOfFile({.width = 3,
                      .height = 3,
                      .bytesPerLine = 3,
                      .lines = Bytes().U8({0xC5, 7, 0xC0, 9, 1, 0xC0, 9, 0xC0, 8, 0xC1, 0xC0, 0xC2, 0xFF})}),
        (Pixels{0xFF070707U, 0xFF070707U, 0xFF070707U, 0xFF070707U, 0xFF070707U, 0xFF010101U, 0xFFC0C0C0U,
                WhitePixel, WhitePixel}));
}

TEST(Pcx, NotEncoded) {
    EXPECT_EQ(
        PixelsOfFile(
            {.encoding = 0, .lines = Bytes().U8({0xC0, 1, 2, 3}), .palette = {Red, Green, Blue, WhitePixel}}),
        (Pixels{BlackPixel, Green, Blue, WhitePixel}));
}

TEST(Pcx, RedGreenAndBluePlanes) {
    const Bytes lines = Bytes().U8({10, 11, 0, 20, 21, 0, 30, 31, 0});
    const Pixels expected{OpaquePixel(10, 20, 30), OpaquePixel(11, 21, 31)};
    EXPECT_EQ(PixelsOfFile({.planes = 3, .width = 2, .bytesPerLine = 3, .lines = lines}), expected);
    const Bytes four = Bytes(lines).U8({1, 2, 3});
    EXPECT_EQ(PixelsOfFile({.planes = 4, .width = 2, .bytesPerLine = 3, .lines = four}), expected);
}

TEST(Pcx, OneBitIsBlackAndWhiteWhateverThePalette) {
    for (const Bytes& palette : {Bytes(), Bytes(Sixteen)}) {
        EXPECT_EQ(PixelsOfFile({.version = 3,
                                .bits = 1,
                                .width = 9,
                                .bytesPerLine = 2,
                                .headerPalette = palette,
                                .lines = Bytes().U8({0xC1, 0xA5, 0x80})}),
                  (Pixels{WhitePixel, BlackPixel, WhitePixel, BlackPixel, BlackPixel, WhitePixel, BlackPixel,
                          WhitePixel, WhitePixel}));
    }
}

TEST(Pcx, PlanesOfOneBitAreAnIndexTheFirstTheLowest) {
    // The columns count from 0 to 7, and to 15 with the fourth plane in the second half.
    const Bytes three = Bytes().U8({0x55, 0x33, 0x0F});
    const PcxFile file{
        .bits = 1, .planes = 3, .width = 8, .bytesPerLine = 1, .headerPalette = Sixteen, .lines = three};
    EXPECT_EQ(PixelsOfFile(file), (Pixels{OfSixteen(0), OfSixteen(1), OfSixteen(2), OfSixteen(3),
                                          OfSixteen(4), OfSixteen(5), OfSixteen(6), OfSixteen(7)}));
    PcxFile four = file;
    four.planes = 4;
    four.lines.U8({0xC1, 0xFF});
    EXPECT_EQ(PixelsOfFile(four), (Pixels{OfSixteen(8), OfSixteen(9), OfSixteen(10), OfSixteen(11),
                                          OfSixteen(12), OfSixteen(13), OfSixteen(14), OfSixteen(15)}));
    PcxFile two = file;
    two.planes = 2;
    EXPECT_EQ(PixelsOfFile(two), (Pixels{OfSixteen(0), OfSixteen(1), OfSixteen(2), OfSixteen(3), OfSixteen(0),
                                         OfSixteen(1), OfSixteen(2), OfSixteen(3)}));
}

TEST(Pcx, TwoAndFourBitsAPlane) {
    EXPECT_EQ(PixelsOfFile({.bits = 2,
                            .width = 5,
                            .bytesPerLine = 2,
                            .headerPalette = Sixteen,
                            .lines = Bytes().U8({0x1B, 0x40})}),
              (Pixels{OfSixteen(0), OfSixteen(1), OfSixteen(2), OfSixteen(3), OfSixteen(1)}));
    EXPECT_EQ(PixelsOfFile({.bits = 4,
                            .width = 3,
                            .bytesPerLine = 2,
                            .headerPalette = Sixteen,
                            .lines = Bytes().U8({0x0F, 0x70})}),
              (Pixels{OfSixteen(0), OfSixteen(15), OfSixteen(7)}));
    // The second plane holds the higher two bits.
    EXPECT_EQ(PixelsOfFile({.bits = 2,
                            .planes = 2,
                            .width = 4,
                            .bytesPerLine = 1,
                            .headerPalette = Sixteen,
                            .lines = Bytes().U8({0x1B, 0x39})}),
              (Pixels{OfSixteen(0), OfSixteen(13), OfSixteen(10), OfSixteen(7)}));
}

TEST(Pcx, AnEmptyHeaderPaletteMeansTheColoursOfTheDisplay) {
    for (const unsigned version : {0U, 2U, 3U, 4U, 5U}) {
        const Pixels pixels = PixelsOfFile({.version = version,
                                            .bits = 4,
                                            .width = 8,
                                            .bytesPerLine = 4,
                                            .lines = Bytes().U8({0x01, 0x24, 0x67, 0x8F})});
        EXPECT_EQ(pixels, (Pixels{BlackPixel, 0xFF0000AAU, 0xFF00AA00U, 0xFFAA0000U, 0xFFAA5500U, 0xFFAAAAAAU,
                                  0xFF555555U, WhitePixel}));
    }
}

TEST(Pcx, FourColoursAreToldByBackgroundAndSet) {
    const auto with = [](unsigned background, unsigned set) {
        return PixelsOfFile({.version = 2,
                             .bits = 2,
                             .bytesPerLine = 1,
                             .headerPalette = Bytes().U8({background, 0, 0, set}),
                             .lines = Bytes().U8({0x1B})});
    };
    EXPECT_EQ(with(0x00, 0x00), (Pixels{BlackPixel, 0xFF00AA00U, 0xFFAA0000U, 0xFFAA5500U}));
    EXPECT_EQ(with(0x10, 0x20), (Pixels{0xFF0000AAU, 0xFF55FF55U, 0xFFFF5555U, 0xFFFFFF55U}));
    EXPECT_EQ(with(0xF0, 0x40), (Pixels{WhitePixel, 0xFF00AAAAU, 0xFFAA00AAU, 0xFFAAAAAAU}));
    EXPECT_EQ(with(0x00, 0x60), (Pixels{BlackPixel, 0xFF55FFFFU, 0xFFFF55FFU, WhitePixel}));
}

TEST(Pcx, TheWindowMayLieAnywhere) {
    EXPECT_EQ(PixelsOfFile({.width = 2,
                            .height = 2,
                            .left = 100,
                            .top = 200,
                            .bytesPerLine = 6,
                            .lines = Bytes().U8({1, 2, 0xC4, 9, 3, 4, 0xC4, 9})}),
              (Pixels{0xFF010101U, 0xFF020202U, 0xFF030303U, 0xFF040404U}));
}

}  // namespace
}  // namespace tavrix::test
