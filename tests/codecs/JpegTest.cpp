#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "codecs/Decoding.h"
#include "codecs/JpegFile.h"
#include "codecs/TestBytes.h"

namespace tavrix::test {
namespace {

using Rgb = std::array<unsigned, 3>;

/// The pixel is opaque and within 3 of the colour.
void ExpectNear(Pixel pixel, const Rgb& colour) {
    EXPECT_EQ(pixel >> 24U, 0xFFU);
    for (unsigned i = 0; i < 3; ++i) {
        const auto part = static_cast<int>((pixel >> (16U - 8U * i)) & 0xFFU);
        EXPECT_NEAR(part, static_cast<int>(colour[i]), 3) << "part " << i;
    }
}

/// The pixel in the middle of an 8 by 8 block.
Pixel Middle(const DecodedPicture& decoded, int column, int row) {
    return decoded.picture.pixels->Whole().Row(8 * row + 4)[static_cast<std::size_t>(8 * column + 4)];
}

/// A 3 by 2 picture of six colours.
Rgb SixColours(int column, int row) {
    static constexpr std::array<std::array<Rgb, 3>, 2> Colours{
        {{{{200, 30, 40}, {30, 180, 60}, {50, 60, 220}}}, {{{240, 240, 240}, {20, 20, 20}, {220, 200, 30}}}}};
    return Colours[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

void ExpectSixColours(const JpegFile& file) {
    const DecodedPicture decoded = Decode(file.Make());
    ASSERT_FALSE(decoded.error.has_value()) << decoded.status.reason;
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete) << decoded.status.reason;
    EXPECT_EQ(decoded.picture.format, "jpg");
    EXPECT_FALSE(decoded.picture.transparent);
    ASSERT_EQ(decoded.picture.Width(), 24);
    ASSERT_EQ(decoded.picture.Height(), 16);
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column)
            ExpectNear(Middle(decoded, column, row), SixColours(column, row));
    }
}

TEST(Jpeg, Baseline) {
    ExpectSixColours(BlockPicture(3, 2, SixColours));
}

TEST(Jpeg, Progressive) {
    JpegFile file = BlockPicture(3, 2, SixColours);
    file.progressive = true;
    ExpectSixColours(file);
}

TEST(Jpeg, Arithmetic) {
    JpegFile file = BlockPicture(3, 2, SixColours);
    file.arithmetic = true;
    ExpectSixColours(file);
}

TEST(Jpeg, RestartMarkers) {
    JpegFile file = BlockPicture(3, 2, SixColours);
    file.restartBlocks = 1;
    ExpectSixColours(file);
}

TEST(Jpeg, Grey) {
    JpegFile file = BlockPicture(2, 1, [](int column, int) { return std::array{40 + 100 * column}; });
    file.components = 1;
    const DecodedPicture decoded = Decode(file.Make());
    ASSERT_FALSE(decoded.error.has_value());
    ExpectNear(Middle(decoded, 0, 0), {40, 40, 40});
    ExpectNear(Middle(decoded, 1, 0), {140, 140, 140});
}

/// A grey picture of 8 by 8 pixels made byte by byte: one code of one bit (0) for "no change" and "end of block".
TEST(Jpeg, HandMade) {
    Bytes file;
    file.U8({0xFF, 0xD8});
    file.U8({0xFF, 0xDB, 0, 67, 0});
    for (int i = 0; i < 64; ++i)
        file.U8({1});
    file.U8({0xFF, 0xC0, 0, 11, 8, 0, 8, 0, 8, 1, 1, 0x11, 0});
    for (const unsigned table : {0x00U, 0x10U}) {
        file.U8({0xFF, 0xC4, 0, 20, table, 1}).Zeros(15).U8({0});
    }
    file.U8({0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 63, 0, 0x3F, 0xFF, 0xD9});
    const DecodedPicture decoded = Decode(file.Get());
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete) << decoded.status.reason;
    EXPECT_EQ(PixelsOf(decoded), std::vector<Pixel>(64, 0xFF808080U));
}

TEST(Jpeg, CmykAndYcck) {
    // Inks as Adobe's writers store them: 255 is none. Cyan, yellow, half black, white.
    constexpr std::array<std::array<int, 4>, 4> Inks{
        {{0, 255, 255, 255}, {255, 255, 0, 255}, {255, 255, 255, 128}, {255, 255, 255, 255}}};
    constexpr std::array<Rgb, 4> Expected{{{0, 255, 255}, {255, 255, 0}, {128, 128, 128}, {255, 255, 255}}};
    for (const bool ycck : {false, true}) {
        JpegFile file =
            BlockPicture(4, 1, [&](int column, int) { return Inks[static_cast<std::size_t>(column)]; });
        file.components = 4;
        file.ycck = ycck;
        const DecodedPicture decoded = Decode(file.Make());
        ASSERT_FALSE(decoded.error.has_value());
        for (int i = 0; i < 4; ++i)
            ExpectNear(Middle(decoded, i, 0), Expected[static_cast<std::size_t>(i)]);
    }
}

TEST(Jpeg, CmykWithoutAdobeMarkerHoldsInk) {
    JpegFile file = BlockPicture(1, 1, [](int, int) { return std::array{255, 0, 0, 0}; });
    file.components = 4;
    file.adobe = false;
    ExpectNear(Middle(Decode(file.Make()), 0, 0), {0, 255, 255});
}

/// Where the stored block (column, row) of a 3 by 2 picture stands when upright.
std::array<int, 2> Upright(unsigned orientation, int column, int row) {
    switch (orientation) {
        case 2:
            return {2 - column, row};
        case 3:
            return {2 - column, 1 - row};
        case 4:
            return {column, 1 - row};
        case 5:
            return {row, column};
        case 6:
            return {1 - row, column};
        case 7:
            return {1 - row, 2 - column};
        case 8:
            return {row, 2 - column};
        default:
            return {column, row};
    }
}

TEST(Jpeg, EveryOrientation) {
    for (const bool bigEndian : {false, true}) {
        for (unsigned orientation = 1; orientation <= 10; ++orientation) {
            SCOPED_TRACE(orientation);
            JpegFile file = BlockPicture(3, 2, SixColours);
            file.exif = orientation;
            file.exifBigEndian = bigEndian;
            const DecodedPicture decoded = Decode(file.Make());
            ASSERT_FALSE(decoded.error.has_value());
            const bool transposed = orientation >= 5 && orientation <= 8;
            ASSERT_EQ(decoded.picture.Width(), transposed ? 16 : 24);
            ASSERT_EQ(decoded.picture.Height(), transposed ? 24 : 16);
            for (int row = 0; row < 2; ++row) {
                for (int column = 0; column < 3; ++column) {
                    const auto [x, y] = Upright(orientation, column, row);
                    ExpectNear(Middle(decoded, x, y), SixColours(column, row));
                }
            }
        }
    }
}

TEST(Jpeg, AnOrientationOfAnyIntegerType) {
    for (const bool bigEndian : {false, true}) {
        for (const unsigned type : {1U, 3U, 4U, 6U, 8U, 9U}) {
            SCOPED_TRACE(type);
            JpegFile file = BlockPicture(3, 2, SixColours);
            file.exif = 6;
            file.exifType = type;
            file.exifBigEndian = bigEndian;
            EXPECT_EQ(Decode(file.Make()).picture.Width(), 16);
        }
    }
    JpegFile text = BlockPicture(3, 2, SixColours);
    text.exif = 6;
    text.exifType = 2;
    EXPECT_EQ(Decode(text.Make()).picture.Width(), 24) << "no number";
}

/// Any number of fill bytes may stand before a marker.
TEST(Jpeg, AnOrientationBehindFillBytes) {
    JpegFile file = BlockPicture(3, 2, SixColours);
    file.exif = 6;
    for (const std::size_t fill : {1U, 2U, 5U}) {
        std::vector<std::byte> bytes = file.Make();
        const std::array<std::byte, 2> marker{std::byte{0xFF}, std::byte{0xE1}};
        const auto exif = std::ranges::search(bytes, marker).begin();
        ASSERT_NE(exif, bytes.end());
        bytes.insert(exif, fill, std::byte{0xFF});
        const DecodedPicture decoded = Decode(bytes);
        ASSERT_FALSE(decoded.error.has_value());
        EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
        EXPECT_EQ(decoded.picture.Width(), 16);
        EXPECT_EQ(decoded.picture.Height(), 24);
    }
}

/// Turned pictures have the very pixels of the upright one, also where the size is no multiple of anything.
TEST(Jpeg, OrientationMovesSinglePixels) {
    JpegFile file;
    file.width = 37;
    file.height = 53;
    unsigned value = 7;
    for (int i = 0; i < 37 * 53 * 3; ++i) {
        value = value * 1664525U + 1013904223U;
        file.parts.push_back(static_cast<std::uint8_t>(value >> 24U));
    }
    file.subsampled = true;
    const std::vector<Pixel> stored = PixelsOf(Decode(file.Make()));
    for (unsigned orientation = 2; orientation <= 8; ++orientation) {
        SCOPED_TRACE(orientation);
        file.exif = orientation;
        const DecodedPicture decoded = Decode(file.Make());
        ASSERT_FALSE(decoded.error.has_value());
        const Surface& turned = decoded.picture.pixels->Whole();
        for (int y = 0; y < 53; ++y) {
            for (int x = 0; x < 37; ++x) {
                const int left = 36 - x;
                const int up = 52 - y;
                const std::array<std::array<int, 2>, 9> places{
                    {{}, {x, y}, {left, y}, {left, up}, {x, up}, {y, x}, {up, x}, {up, left}, {y, left}}};
                const auto [toX, toY] = places[orientation];
                ASSERT_EQ(turned.Row(toY)[static_cast<std::size_t>(toX)],
                          stored[static_cast<std::size_t>(37 * y + x)]);
            }
        }
    }
}

TEST(Jpeg, InsideABitmap) {
    const std::vector<std::byte> inside = BlockPicture(3, 2, SixColours).Make();
    Bytes file;
    file.Text("BM").U32(0).U32(0).U32(54).U32(40).I32(24).I32(16).U16(1).U16(0).U32(4);
    file.U32(static_cast<std::uint32_t>(inside.size())).Zeros(16).Append(inside);
    const DecodedPicture decoded = Decode(file.Get());
    ASSERT_FALSE(decoded.error.has_value());
    EXPECT_EQ(decoded.picture.format, "bmp");
    ExpectNear(Middle(decoded, 0, 0), SixColours(0, 0));
    ExpectNear(Middle(decoded, 2, 1), SixColours(2, 1));
}

/// Tells what a decoder reports while it works.
class WatchingSink final : public PictureSink {
  public:
    Surface* Begin(const PictureInfo& info) override {
        surface_ = Surface(info.width, info.height);
        return &surface_;
    }
    void RowsReady(int count) override { reports.push_back(count); }
    [[nodiscard]] bool Cancelled() const override { return reports.size() >= cancelAfter; }

    std::vector<int> reports;
    std::size_t cancelAfter = 1'000'000;

  private:
    Surface surface_;
};

JpegFile TallPicture() {
    return BlockPicture(2, 40, [](int column, int row) {
        return Rgb{100, 2U * static_cast<unsigned>(row), 50U * static_cast<unsigned>(column)};
    });
}

/// The memory of a large progressive picture is given back while its rows come; that must not show.
TEST(Jpeg, LargeProgressiveHasThePixelsOfTheSameSequentialOne) {
    JpegFile file;
    file.width = 2600;
    file.height = 1700;
    file.quality = 60;
    for (int y = 0; y < file.height; ++y) {
        for (int x = 0; x < file.width; ++x) {
            for (const int part : {x / 11, y / 7, (x * y) / 900})
                file.parts.push_back(static_cast<std::uint8_t>(part));
        }
    }
    const std::vector<Pixel> sequential = PixelsOf(Decode(file.Make()));
    file.progressive = true;
    ASSERT_FALSE(sequential.empty());
    EXPECT_TRUE(PixelsOf(Decode(file.Make())) == sequential);
}

TEST(Jpeg, RowsAreToldAsTheyCome) {
    const std::vector<std::byte> bytes = TallPicture().Make();
    MemorySource source(bytes);
    WatchingSink sink;
    EXPECT_EQ(DecoderFor(source)->Decode(source, sink).outcome, Outcome::Complete);
    ASSERT_GE(sink.reports.size(), 5U);
    EXPECT_TRUE(std::ranges::is_sorted(sink.reports));
    EXPECT_EQ(sink.reports.back(), 320);
}

TEST(Jpeg, CancelledSoon) {
    for (const bool progressive : {false, true}) {
        JpegFile file = TallPicture();
        file.progressive = progressive;
        const std::vector<std::byte> bytes = file.Make();
        MemorySource source(bytes);
        WatchingSink sink;
        sink.cancelAfter = progressive ? 0 : 1;
        const DecodeStatus status = DecoderFor(source)->Decode(source, sink);
        EXPECT_EQ(status.outcome, Outcome::Truncated);
        EXPECT_LE(sink.reports.size(), 2U);
        EXPECT_TRUE(sink.reports.empty() || sink.reports.back() < 320);
    }
}

}  // namespace
}  // namespace tavrix::test
