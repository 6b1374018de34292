#include <gtest/gtest.h>

#include <limits>

#include "codecs/EmfFile.h"
#include "codecs/JpegFile.h"
#include "codecs/MetafilePicture.h"
#include "codecs/PngFile.h"
#include "codecs/WmfFile.h"

namespace tavrix::test {
namespace {

constexpr std::uint32_t SourceCopy = 0x00CC0020U;
constexpr std::uint32_t SourceInvert = 0x00660046U;
constexpr std::uint32_t Blackness = 0x00000042U;

/// A bitmap of 24 bits; rows as letters from the top, stored from the lower edge unless told otherwise.
struct Dib {
    Art rows;
    bool topDown = false;

    [[nodiscard]] Bytes Header() const {
        const auto height = static_cast<std::int32_t>(rows.size());
        Bytes header;
        header.U32(40).I32(static_cast<std::int32_t>(rows[0].size())).I32(topDown ? -height : height);
        return header.U16(1).U16(24).Zeros(24);
    }
    [[nodiscard]] Bytes Bits() const {
        Bytes bits;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::string& row = rows[topDown ? i : rows.size() - 1 - i];
            for (const char letter : row) {
                const bool white = letter == '.';
                const auto part = [&](char own) { return white || letter == own ? 255U : 0U; };
                bits.U8({part('B'), part('G'), part('R')});
            }
            bits.Zeros((4 - row.size() * 3 % 4) % 4);
        }
        return bits;
    }
    [[nodiscard]] Bytes Packed() const { return Header().Append(Bits().Get()); }
};

const Dib Four{{"RG", "B#"}};
const Dib FourTopDown{{"RG", "B#"}, true};

struct Place {
    int x, y, width, height;
};

EmfFile Emf(int width = 6, int height = 4) {
    return EmfFile({.width = width, .height = height});
}
WmfFile Wmf(int width = 6, int height = 4) {
    return WmfFile({{.right = width, .bottom = height}});
}

/// The bitmap goes behind the record's own fields, which are `fixed` bytes long with the record's head.
Bytes Offsets(std::uint32_t fixed, const Bytes& header, const Bytes& bits) {
    const auto size = static_cast<std::uint32_t>(header.Size());
    return Bytes().U32(fixed).U32(size).U32(fixed + size).U32(static_cast<std::uint32_t>(bits.Size()));
}

EmfFile StretchDib(EmfFile file, const Dib& dib, Place to, Place from, std::uint32_t operation = SourceCopy) {
    Bytes body =
        EmfFile::Bounds().I32(to.x).I32(to.y).I32(from.x).I32(from.y).I32(from.width).I32(from.height);
    body.Append(Offsets(80, dib.Header(), dib.Bits()).Get())
        .U32(0)
        .U32(operation)
        .I32(to.width)
        .I32(to.height);
    return file.Record(81, body.Append(dib.Packed().Get()));
}

WmfFile StretchDib(WmfFile file, const Dib& dib, Place to, Place from, std::uint32_t operation = SourceCopy) {
    Bytes body;
    body.U32(operation).U16(0);
    for (const int word : {from.height, from.width, from.y, from.x, to.height, to.width, to.y, to.x})
        body.U16(static_cast<std::uint32_t>(word) & 0xFFFFU);
    return file.Record(0x0F43, body.Append(dib.Packed().Get()));
}

/// BitBlt (76), StretchBlt (77), MaskBlt (78), AlphaBlend (114) and TransparentBlt (116).
EmfFile Blit(EmfFile file, unsigned type, Place to, Place from, std::uint32_t operation, const Bytes& header,
             const Bytes& bits) {
    Bytes body = EmfFile::Bounds().I32(to.x).I32(to.y).I32(to.width).I32(to.height).U32(operation);
    body.I32(from.x).I32(from.y).U32(EmfFile::Float(1)).U32(0).U32(0).U32(EmfFile::Float(1)).U32(0).U32(0);
    body.U32(WhiteValue).U32(0);
    const std::uint32_t fixed = type == 76 ? 100 : type == 78 ? 128 : 108;
    if (header.Size() == 0) {
        body.Zeros(16);
    } else {
        body.Append(Offsets(fixed, header, bits).Get());
    }
    if (type == 78) {
        body.Zeros(28);
    } else if (type != 76) {
        body.I32(from.width).I32(from.height);
    }
    return file.Record(type, body.Append(header.Get()).Append(bits.Get()));
}

template <class File>
Art Rows(const File& file) {
    return MetafilePicture(file.Make()).Rows();
}

TEST(MetafileBitmaps, StretchDibOfBothFormatsAndBothOrders) {
    const Art once{"......", ".RG...", ".B#...", "......"};
    const Art twice{"RRGG..", "RRGG..", "BB##..", "BB##.."};
    for (const Dib& dib : {Four, FourTopDown}) {
        EXPECT_EQ(Rows(StretchDib(Emf(), dib, {1, 1, 2, 2}, {0, 0, 2, 2})), once);
        EXPECT_EQ(Rows(StretchDib(Wmf(), dib, {1, 1, 2, 2}, {0, 0, 2, 2})), once);
        EXPECT_EQ(Rows(StretchDib(Emf(), dib, {0, 0, 4, 4}, {0, 0, 2, 2})), twice);
        EXPECT_EQ(Rows(StretchDib(Wmf(), dib, {0, 0, 4, 4}, {0, 0, 2, 2})), twice);
    }
}

TEST(MetafileBitmaps, SizesBelowZeroMirror) {
    EXPECT_EQ(Rows(StretchDib(Emf(), Four, {3, 1, -2, 2}, {0, 0, 2, 2})),
              (Art{"......", ".GR...", ".#B...", "......"}));
    EXPECT_EQ(Rows(StretchDib(Wmf(), Four, {1, 3, 2, -2}, {0, 0, 2, 2})),
              (Art{"......", ".B#...", ".RG...", "......"}));
}

TEST(MetafileBitmaps, PartsAreCountedFromTheLowerEdge) {
    EXPECT_EQ(Rows(StretchDib(Emf(), Four, {0, 0, 1, 1}, {0, 0, 1, 1}))[0], "B.....");
    EXPECT_EQ(Rows(StretchDib(Emf(), FourTopDown, {0, 0, 1, 1}, {0, 0, 1, 1}))[0], "R.....");
    EXPECT_EQ(Rows(StretchDib(Emf(), Four, {0, 0, 1, 1}, {1, 1, 1, 1}))[0], "G.....");
}

TEST(MetafileBitmaps, RasterOperations) {
    const Dib complement{{"G.", ".#"}};
    EXPECT_EQ(Rows(StretchDib(Emf().Fill(0, 0, 6, 4, GreenValue), complement, {1, 1, 2, 2}, {0, 0, 2, 2},
                              SourceInvert)),
              (Art{"GGGGGG", "G#?GGG", "G?GGGG", "GGGGGG"}));
    EXPECT_EQ(Rows(StretchDib(Emf(), Four, {1, 1, 2, 2}, {0, 0, 2, 2}, Blackness)),
              (Art{"......", ".##...", ".##...", "......"}));
    EXPECT_EQ(Rows(StretchDib(Wmf(), Four, {1, 1, 2, 2}, {0, 0, 2, 2}, Blackness)),
              (Art{"......", ".##...", ".##...", "......"}));
}

TEST(MetafileBitmaps, BitBltAndStretchBlt) {
    const Bytes header = Four.Header();
    const Bytes bits = Four.Bits();
    EXPECT_EQ(Rows(Blit(Emf(), 76, {1, 1, 2, 2}, {0, 0, 2, 2}, SourceCopy, header, bits)),
              (Art{"......", ".RG...", ".B#...", "......"}));
    EXPECT_EQ(Rows(Blit(Emf(), 76, {1, 1, 1, 1}, {1, 0, 1, 1}, SourceCopy, header, bits))[1], ".G....")
        << "from the top left";
    EXPECT_EQ(Rows(Blit(Emf(), 77, {0, 0, 4, 4}, {0, 0, 2, 2}, SourceCopy, header, bits))[3], "BB##..");

    const auto plain = [&](unsigned function, std::initializer_list<int> words) {
        Bytes body;
        body.U32(SourceCopy);
        for (const int word : words)
            body.U16(static_cast<std::uint32_t>(word) & 0xFFFFU);
        return Rows(Wmf().Record(function, body.Append(Four.Packed().Get())));
    };
    EXPECT_EQ(plain(0x0940, {0, 0, 2, 2, 1, 1}), (Art{"......", ".RG...", ".B#...", "......"}));
    EXPECT_EQ(plain(0x0940, {0, 1, 1, 1, 1, 1})[1], ".G....");
    EXPECT_EQ(plain(0x0B41, {2, 2, 0, 0, 4, 4, 0, 0})[3], "BB##..");
}

TEST(MetafileBitmaps, BlitsWithoutASourceUseTheBrush) {
    constexpr std::uint32_t PatternCopy = 0x00F00021U;
    EXPECT_EQ(Rows(Blit(Emf().Brush(1, 0, RedValue), 76, {1, 1, 2, 2}, {0, 0, 0, 0}, PatternCopy, {}, {})),
              (Art{"......", ".RR...", ".RR...", "......"}));
    EXPECT_EQ(Rows(Wmf().Brush(0, RedValue).Select(0).Record(0x061D, {0x21, 0xF0, 2, 2, 1, 1})),
              (Art{"......", ".RR...", ".RR...", "......"}));
    EXPECT_EQ(Rows(Wmf().Record(0x0940, {0x42, 0, 0, 0, 0, 2, 2, 1, 1})),
              (Art{"......", ".##...", ".##...", "......"}));
}

TEST(MetafileBitmaps, BlitsThatLackTheSourceTheyNeedDrawNothing) {
    const Art left{"R.....", "R.....", "R.....", "R....."};
    const EmfFile enhanced = Emf().Fill(0, 0, 1, 4, RedValue);
    const WmfFile plain = Wmf().Fill(0, 0, 1, 4, RedValue);
    for (const std::uint32_t operation : {SourceCopy, SourceInvert}) {
        for (const unsigned type : {76U, 77U, 78U, 114U, 116U})
            EXPECT_EQ(Rows(Blit(enhanced, type, {2, 0, 2, 2}, {0, 0, 2, 2}, operation, {}, {})), left)
                << type;
        const auto low = static_cast<int>(operation & 0xFFFFU);
        const auto high = static_cast<int>(operation >> 16U);
        for (const unsigned function : {0x0922U, 0x0940U})
            EXPECT_EQ(Rows(WmfFile(plain).Record(function, {low, high, 0, 0, 0, 2, 2, 0, 2})), left)
                << function;
        for (const unsigned function : {0x0B23U, 0x0B41U})
            EXPECT_EQ(Rows(WmfFile(plain).Record(function, {low, high, 2, 2, 0, 0, 0, 2, 2, 0, 2})), left)
                << function;
    }
}

TEST(MetafileBitmaps, SetDibToDeviceTakesSomeRows) {
    const auto device = [](const Dib& dib, Place from, std::uint32_t first, std::uint32_t count) {
        Bytes body = EmfFile::Bounds().I32(1).I32(1).I32(from.x).I32(from.y).I32(from.width).I32(from.height);
        body.Append(Offsets(76, dib.Header(), dib.Bits()).Get()).U32(0).U32(first).U32(count);
        return Rows(Emf().Record(80, body.Append(dib.Packed().Get())));
    };
    EXPECT_EQ(device(Four, {0, 0, 2, 2}, 0, 2), (Art{"......", ".RG...", ".B#...", "......"}));
    EXPECT_EQ(device(FourTopDown, {0, 0, 2, 2}, 0, 2), (Art{"......", ".RG...", ".B#...", "......"}));
    EXPECT_EQ(device(Four, {0, 0, 2, 2}, 0, 1), (Art{"......", "......", ".B#...", "......"}))
        << "the lower row alone";
    EXPECT_EQ(device(Four, {1, 0, 1, 2}, 0, 2), (Art{"......", ".G....", ".#....", "......"}));
    EXPECT_EQ(device({{"??", "RG"}}, {0, 0, 2, 2}, 1, 1), (Art{"......", ".RG...", "......", "......"}))
        << "one row, and it is the upper one";
    for (const std::uint32_t extreme : {2U, 0x7FFFFFFFU, 0xFFFFFFFFU})
        EXPECT_EQ(device(Four, {0, 0, 2, 2}, extreme, 1), Art(4, "......")) << extreme;
    EXPECT_EQ(device(Four, {0, 0, 2, 2}, 0, 0), Art(4, "......"));

    Bytes plain;
    plain.U16(0).U16(2).U16(0).U16(0).U16(0).U16(2).U16(2).U16(1).U16(1);
    EXPECT_EQ(Rows(Wmf().Record(0x0D33, plain.Append(Four.Packed().Get()))),
              (Art{"......", ".RG...", ".B#...", "......"}));
}

TEST(MetafileBitmaps, AlphaBlendMixesByTheWholeAndByThePixel) {
    constexpr std::uint32_t Half = 0x00800000U;
    constexpr std::uint32_t PerPixel = 0x01FF0000U;
    const MetafilePicture half(
        Blit(Emf(), 114, {0, 0, 2, 2}, {0, 0, 2, 2}, Half, Four.Header(), Four.Bits()).Make());
    EXPECT_NEAR((half.At(1, 1) >> 8U) & 0xFFU, 127, 2) << "black over white";
    EXPECT_NEAR((half.At(0, 0) >> 8U) & 0xFFU, 127, 2);
    EXPECT_EQ(half.At(0, 0) >> 16U, 0xFFFFU);

    Bytes header;
    header.U32(40).I32(3).I32(1).U16(1).U16(32).Zeros(24);
    const Bytes pixels = Bytes().U32(0xFF0000FFU).U32(0x80000080U).U32(0);
    const MetafilePicture mixed(
        Blit(Emf(), 114, {0, 0, 3, 1}, {0, 0, 3, 1}, PerPixel, header, pixels).Make());
    EXPECT_EQ(mixed.At(0, 0), Blue);
    EXPECT_NEAR((mixed.At(1, 0) >> 16U) & 0xFFU, 127, 2);
    EXPECT_EQ(mixed.At(2, 0), WhitePixel);
    const Bytes clear = Bytes().Zeros(12);
    EXPECT_EQ(Rows(Blit(Emf(), 114, {0, 0, 3, 1}, {0, 0, 3, 1}, PerPixel, header, clear))[0], "......")
        << "alpha 0 throughout is seen through";
}

TEST(MetafileBitmaps, TransparentBltLeavesOneColourAway) {
    EXPECT_EQ(Rows(Blit(Emf(), 116, {0, 0, 4, 4}, {0, 0, 2, 2}, GreenValue, Four.Header(), Four.Bits())),
              (Art{"RR....", "RR....", "BB##..", "BB##.."}));
}

Bytes MonoHeader(int width, int height, std::uint32_t zero = 0, std::uint32_t one = 0xFFFFFFU) {
    return Bytes().U32(40).I32(width).I32(height).U16(1).U16(1).Zeros(24).U32(zero).U32(one);
}

/// A MaskBlt of two by two pixels through a mask of which the upper left and the lower right ones are set.
EmfFile MaskBlt(EmfFile file, std::uint32_t operations, Place from, int maskX, int maskY, const Bytes& header,
                const Bytes& bits) {
    const Bytes maskHeader = MonoHeader(2, 2);
    const Bytes maskBits = Bytes().U32(0x40U).U32(0x80U);  // from the lower row
    Bytes body = EmfFile::Bounds().I32(0).I32(0).I32(2).I32(2).U32(operations).I32(from.x).I32(from.y);
    body.U32(EmfFile::Float(1)).U32(0).U32(0).U32(EmfFile::Float(1)).U32(0).U32(0).U32(WhiteValue).U32(0);
    if (header.Size() == 0) {
        body.Zeros(16);
    } else {
        body.Append(Offsets(128, header, bits).Get());
    }
    body.I32(maskX).I32(maskY).U32(0);
    const auto maskAt = static_cast<std::uint32_t>(128 + header.Size() + bits.Size());
    body.Append(Offsets(maskAt, maskHeader, maskBits).Get()).Append(header.Get()).Append(bits.Get());
    return file.Record(78, body.Append(maskHeader.Get()).Append(maskBits.Get()));
}

TEST(MetafileBitmaps, MaskBltChoosesBetweenTwoOperations) {
    const Art rows = Rows(MaskBlt(Emf(), SourceCopy, {}, 0, 0, Four.Header(), Four.Bits()));
    EXPECT_EQ(rows[0], "R#....") << "blackness where the mask is 0";
    EXPECT_EQ(rows[1], "##....");
}

TEST(MetafileBitmaps, MaskBltOfTheBrushAloneMindsItsMask) {
    constexpr std::uint32_t BrushOrNothing = 0xAAF00000U;
    constexpr std::uint32_t BrushOrSource = 0xCCF00000U;
    const EmfFile file = Emf().Brush(1, 0, GreenValue);
    EXPECT_EQ(Rows(MaskBlt(file, BrushOrNothing, {}, 0, 0, {}, {})),
              (Art{"G.....", ".G....", "......", "......"}));
    EXPECT_EQ(Rows(MaskBlt(file, BrushOrSource, {}, 0, 0, Four.Header(), Four.Bits())),
              (Art{"GG....", "BG....", "......", "......"}));
    EXPECT_EQ(Rows(MaskBlt(file, BrushOrSource, {}, 0, 0, {}, {})), Art(4, "......")) << "no source";
}

TEST(MetafileBitmaps, APlaceInAMaskMayBeAnyNumber) {
    constexpr int Least = std::numeric_limits<int>::min();
    for (const int far : {Least, std::numeric_limits<int>::max()}) {
        const EmfFile file = MaskBlt(Emf(), SourceCopy, {1, 1, 2, 2}, far, far, Four.Header(), Four.Bits());
        EXPECT_EQ(Rows(file)[0], "#.....") << "what lies outside of the mask is drawn";
    }
}

TEST(MetafileBitmaps, PlgBltGoesToAParallelogram) {
    Bytes body = EmfFile::Bounds().I32(4).I32(0).I32(4).I32(4).I32(0).I32(0).I32(0).I32(0).I32(2).I32(2);
    body.U32(EmfFile::Float(1)).U32(0).U32(0).U32(EmfFile::Float(1)).U32(0).U32(0).U32(WhiteValue).U32(0);
    body.Append(Offsets(140, Four.Header(), Four.Bits()).Get()).Zeros(28).Append(Four.Packed().Get());
    EXPECT_EQ(Rows(Emf().Record(79, body)), (Art{"BBRR..", "BBRR..", "##GG..", "##GG.."}))
        << "a quarter turned";
}

TEST(MetafileBitmaps, TwoColoursOfAPlainMetafileAreThoseOfTheText) {
    const auto blit = [](const Bytes& header) {
        Bytes body = Bytes().U32(SourceCopy).U16(0).U16(0).U16(1).U16(2).U16(0).U16(0);
        body.Append(header.Get()).U32(0x40U);
        const WmfFile file = Wmf()
                                 .Record(0x0209, Bytes().U32(RedValue))
                                 .Record(0x0201, Bytes().U32(BlueValue))
                                 .Record(0x0940, body);
        return Rows(file)[0];
    };
    EXPECT_EQ(blit(MonoHeader(2, 1)), "RB....");
    EXPECT_EQ(blit(MonoHeader(2, 1, 0x00FF00U, 0)), "G#....") << "its own palette";
}

TEST(MetafileBitmaps, PatternBrushes) {
    const Bytes rows = Bytes().U32(0xAAU).U32(0x55U);
    Bytes mono = Bytes().U32(1).U32(0).U32(32).U32(48).U32(80).U32(8);
    const EmfFile colours =
        Emf().Record(24, Bytes().U32(RedValue)).Record(25, Bytes().U32(BlueValue)).Stock(8);
    const auto filled = [&](unsigned type, const Bytes& header) {
        const Bytes body = Bytes(mono).Append(header.Get()).Append(rows.Get());
        return Rows(EmfFile(colours).Record(type, body).Select(1).Polygon({0, 0, 6, 0, 6, 4, 0, 4}));
    };
    EXPECT_EQ(filled(93, MonoHeader(8, 2)), (Art{"RBRBRB", "BRBRBR", "RBRBRB", "BRBRBR"}));
    EXPECT_EQ(filled(94, MonoHeader(8, 2)), (Art{"#.#.#.", ".#.#.#", "#.#.#.", ".#.#.#"}));

    const auto plain = [&](unsigned style) {
        const Bytes body = Bytes().U16(style).U16(0).Append(MonoHeader(8, 2).Get()).Append(rows.Get());
        return Rows(Wmf()
                        .Record(0x0209, Bytes().U32(RedValue))
                        .Record(0x0201, Bytes().U32(BlueValue))
                        .Pen(5, 0, 0)
                        .Select(0)
                        .Record(0x0142, body)
                        .Select(1)
                        .Polygon({0, 0, 6, 0, 6, 4, 0, 4}));
    };
    EXPECT_EQ(plain(3)[0], "RBRBRB");
    EXPECT_EQ(plain(5)[0], "#.#.#.");
    Bytes device;
    device.U16(0).U16(8).U16(2).U16(2).U8({1, 1}).Zeros(22).U16(0x55).U16(0xAA);
    EXPECT_EQ(Rows(Wmf()
                       .Record(0x0209, Bytes().U32(RedValue))
                       .Record(0x0201, Bytes().U32(BlueValue))
                       .Pen(5, 0, 0)
                       .Select(0)
                       .Record(0x01F9, device)
                       .Select(1)
                       .Polygon({0, 0, 6, 0, 6, 4, 0, 4})),
              (Art{"RBRBRB", "BRBRBR", "RBRBRB", "BRBRBR"}));
    EXPECT_EQ(Rows(EmfFile(colours)
                       .Record(13, {1, 0})
                       .Record(94, Bytes(mono).Append(MonoHeader(8, 2).Get()).Append(rows.Get()))
                       .Select(1)
                       .Polygon({0, 0, 6, 0, 6, 4, 0, 4}))[0],
              ".#.#.#")
        << "the pattern starts at the brush's origin";
}

/// A bitmap of one pixel, the first of a palette that is told as indexes into the selected one.
Bytes IndexedPixel() {
    return Bytes().U32(40).I32(1).I32(1).U16(1).U16(8).Zeros(16).U32(1).U32(0).U16(0);
}

TEST(MetafileBitmaps, APatternChangesWithThePalette) {
    Bytes pattern = Bytes().U32(2).U32(1).U32(32).U32(42).U32(76).U32(4);
    pattern.Append(IndexedPixel().Get()).Zeros(2).U32(0);
    EmfFile file = Emf()
                       .Record(49, Bytes().U32(1).U16(0x300).U16(1).U32(RedValue))
                       .Record(48, {1})
                       .Stock(8)
                       .Record(94, pattern)
                       .Select(2);
    file.Polygon({0, 0, 1, 0, 1, 4, 0, 4});
    int left = 1;
    for (const std::uint32_t colour : {GreenValue, BlueValue, GreenValue, BlueValue, RedValue}) {
        file.Record(50, Bytes().U32(1).U32(0).U32(1).U32(colour));
        file.Polygon({left, 0, left + 1, 0, left + 1, 4, left, 4});
        ++left;
    }
    EXPECT_EQ(Rows(file)[0], "RGBGBR");
}

TEST(MetafileBitmaps, APensPatternTellsItsPaletteInItsColour) {
    const auto drawn = [](std::uint32_t usage, const Bytes& header, std::uint32_t width) {
        constexpr std::uint32_t GeometricFlat = 0x00010200U;
        Bytes pen = Bytes().U32(2).U32(52).U32(static_cast<std::uint32_t>(header.Size()));
        pen.U32(52 + static_cast<std::uint32_t>(header.Size())).U32(4);
        pen.U32(GeometricFlat).U32(width).U32(5).U32(usage).U32(0).U32(0).Append(header.Get()).U32(0);
        return Rows(Emf()
                        .Record(49, Bytes().U32(1).U16(0x300).U16(1).U32(RedValue))
                        .Record(48, {1})
                        .Record(95, pen)
                        .Select(2)
                        .Poly(4, {0, 1, 6, 1}))[1];
    };
    Bytes told = Bytes().U32(40).I32(1).I32(1).U16(1).U16(8).Zeros(16).U32(1).U32(0).U32(GreenValue);
    EXPECT_EQ(drawn(0, told, 1), "GGGGGG");
    EXPECT_EQ(drawn(0, told, 2), "GGGGGG");
    Bytes indexed = IndexedPixel().Zeros(2);
    EXPECT_EQ(drawn(1, indexed, 2), "RRRRRR");
}

TEST(MetafileBitmaps, OldDeviceBitmaps) {
    Bytes body = Bytes().U32(SourceCopy).U16(0).U16(0).U16(2).U16(2).U16(1).U16(1);
    body.U16(0).U16(2).U16(2).U16(6).U8({1, 24}).U8({0, 0, 255, 0, 255, 0}).U8({255, 0, 0, 0, 0, 0});
    EXPECT_EQ(Rows(Wmf().Record(0x0922, body)), (Art{"......", ".RG...", ".B#...", "......"}));
    Bytes lacking = Bytes().U32(SourceCopy).U16(0).U16(0).U16(2).U16(2).U16(1).U16(1);
    lacking.U16(0).U16(2).U16(2).U16(6).U8({1, 24}).U8({0, 0, 255, 0, 255, 0});
    EXPECT_EQ(Rows(Wmf().Record(0x0922, lacking)), Art(4, "......")) << "a row is missing";
}

TEST(MetafileBitmaps, PaletteIndexesGoThroughTheSelectedPalette) {
    Bytes packed = Bytes().U32(40).I32(2).I32(1).U16(1).U16(8).Zeros(16).U32(2).U32(0);
    packed.U16(1).U16(0).U8({0, 1, 0, 0});
    const Bytes palette = Bytes().U16(0x300).U16(2).U32(RedValue).U32(GreenValue);
    Bytes body = Bytes().U32(SourceCopy).U16(1);
    for (const unsigned word : {1U, 2U, 0U, 0U, 1U, 2U, 0U, 0U})
        body.U16(word);
    EXPECT_EQ(
        Rows(Wmf().Record(0x00F7, palette).Record(0x0234, {0}).Record(0x0F43, body.Append(packed.Get())))[0],
        "GR....");
}

constexpr std::uint32_t JpegData = 4;
constexpr std::uint32_t PngData = 5;

/// The header of a bitmap that is a whole file of another kind.
Bytes HeaderOfFile(std::uint32_t compression, int width, int height, std::span<const std::byte> file) {
    Bytes header = Bytes().U32(40).I32(width).I32(height).U16(1).U16(0).U32(compression);
    return header.U32(static_cast<std::uint32_t>(file.size())).Zeros(16);
}

std::vector<std::byte> BlueJpeg() {
    return BlockPicture(2, 2, [](int, int) { return std::array{0, 0, 255}; }).Make();
}

/// Red and green over blue and nothing.
std::vector<std::byte> FourPng() {
    return PngFile{.rows = {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 0, 0, 0, 0}}.Make();
}

TEST(MetafileBitmaps, AFileInsideIsAsLargeAsItsHeaderTellsAtMost) {
    const auto drawn = [&](std::uint32_t compression, int width, const std::vector<std::byte>& file,
                           int own) {
        const Bytes header = HeaderOfFile(compression, width, width, file);
        return MetafilePicture(
                   Blit(Emf(), 77, {0, 0, 6, 4}, {0, 0, own, own}, SourceCopy, header, Bytes().Append(file))
                       .Make())
            .Count('.');
    };
    EXPECT_EQ(drawn(JpegData, 16, BlueJpeg(), 16), 0);
    EXPECT_EQ(drawn(JpegData, 8, BlueJpeg(), 16), 24);
    EXPECT_EQ(drawn(PngData, 2, FourPng(), 2), 6);
    EXPECT_EQ(drawn(PngData, 1, FourPng(), 2), 24);
}

TEST(MetafileBitmaps, AFileInsideOfBothFormats) {
    const std::vector<std::byte> png = FourPng();
    const Art once{"......", ".RG...", ".B....", "......"};
    for (const int height : {2, -2}) {
        const Bytes header = HeaderOfFile(PngData, 2, height, png);
        Bytes wide = EmfFile::Bounds().I32(1).I32(1).I32(0).I32(0).I32(2).I32(2);
        wide.Append(Offsets(80, header, Bytes().Append(png)).Get()).U32(0).U32(SourceCopy).I32(2).I32(2);
        EXPECT_EQ(Rows(Emf().Record(81, wide.Append(header.Get()).Append(png))), once) << height;
        Bytes plain = Bytes().U32(SourceCopy).U16(0);
        for (const unsigned word : {2U, 2U, 0U, 0U, 2U, 2U, 1U, 1U})
            plain.U16(word);
        EXPECT_EQ(Rows(Wmf().Record(0x0F43, plain.Append(header.Get()).Append(png))), once) << height;
    }
    const std::vector<std::byte> jpeg = BlueJpeg();
    Bytes plain = Bytes().U32(SourceCopy).U16(0);
    for (const unsigned word : {16U, 16U, 0U, 0U, 4U, 6U, 0U, 0U})
        plain.U16(word);
    plain.Append(HeaderOfFile(JpegData, 16, 16, jpeg).Get()).Append(jpeg);
    EXPECT_EQ(MetafilePicture(Wmf().Record(0x0F43, plain).Make()).Count('.'), 0);
}

TEST(MetafileBitmaps, OneThatCostsTooMuchIsLeftAway) {
    const Bytes bits = Bytes().Append(BlueJpeg());
    const Bytes header = HeaderOfFile(JpegData, 8000, 8000, bits.Get());
    const auto picture = MetafilePicture::Within<2'000'000'000>(
        Blit(Emf(), 77, {0, 0, 6, 4}, {0, 0, 16, 16}, SourceCopy, header, bits)
            .Fill(5, 3, 6, 4, RedValue)
            .Make());
    EXPECT_EQ(picture.Status().outcome, Outcome::Complete);
    EXPECT_EQ(picture.Count('.'), 23);
    EXPECT_EQ(picture.At(5, 3), Red);
}

TEST(MetafileBitmaps, ADamagedFileInsideIsLeftAway) {
    for (const std::uint32_t compression : {JpegData, PngData}) {
        std::vector<std::byte> file = compression == JpegData ? BlueJpeg() : FourPng();
        const int size = compression == JpegData ? 16 : 2;
        for (std::size_t i = 0; i < 30; ++i)
            file[i] = std::byte{0x55};
        const Bytes header = HeaderOfFile(compression, size, size, file);
        const MetafilePicture picture(
            Blit(Emf(), 77, {0, 0, 6, 4}, {0, 0, size, size}, SourceCopy, header, Bytes().Append(file))
                .Fill(5, 3, 6, 4, RedValue)
                .Make());
        EXPECT_EQ(picture.Status().outcome, Outcome::Complete);
        EXPECT_EQ(picture.Count('.'), 23) << compression;
        EXPECT_EQ(picture.At(5, 3), Red);
    }
}

TEST(MetafileBitmaps, ThatCannotBeDecodedAreLeftAway) {
    Dib dib = Four;
    const auto broken = [&](std::size_t at, std::uint32_t value) {
        Bytes header;
        std::vector<std::byte> bytes = dib.Header().Get();
        for (std::size_t i = 0; i < 4; ++i)
            bytes[at + i] = static_cast<std::byte>(value >> (8 * i));
        header.Append(bytes);
        return MetafilePicture(Blit(Emf().Fill(5, 3, 6, 4, RedValue), 76, {0, 0, 2, 2}, {0, 0, 2, 2},
                                    SourceCopy, header, dib.Bits())
                                   .Make());
    };
    for (const auto& [at, value] : {std::pair<std::size_t, std::uint32_t>{0, 3},
                                    {4, 0},
                                    {4, 0x7FFFFFFF},
                                    {4, 0x80000000},
                                    {8, 0},
                                    {8, 0x7FFFFFFF},
                                    {8, 0x80000000},
                                    {14, 7},
                                    {16, 99}}) {
        SCOPED_TRACE(at);
        const MetafilePicture picture = broken(at, value);
        EXPECT_EQ(picture.Status().outcome, Outcome::Complete);
        EXPECT_EQ(picture.At(5, 3), Red);
        EXPECT_EQ(picture.At(5, 0), WhitePixel);
    }
}

}  // namespace
}  // namespace tavrix::test
