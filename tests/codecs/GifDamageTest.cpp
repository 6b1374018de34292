#include <gtest/gtest.h>

#include "codecs/Decoding.h"
#include "codecs/GifFile.h"
#include "imaging/codecs/GifDecoder.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;
const Pixels Table{BlackPixel, Red, Green, Blue};

std::vector<GifFile> SmallFiles() {
    const std::vector<unsigned> nine{1, 2, 3, 3, 2, 1, 1, 3, 2};
    const GifImage image{.width = 3, .height = 3, .pixels = nine};
    GifImage interlaced = image;
    interlaced.interlaced = true;
    GifImage local = image;
    local.table = {Red, Green, Blue, WhitePixel};
    local.codeSize = 2;
    GifImage part = image;
    part.control = false;
    return {
        {.width = 3, .height = 3, .table = Table, .images = {image}},
        {.width = 3, .height = 3, .table = Table, .images = {interlaced}},
        {.width = 3, .height = 3, .images = {local}},
        {.width = 3, .height = 3, .table = Table, .images = {image, local, interlaced}},
        {.width = 3, .height = 3, .table = Table, .images = {part, local}},
    };
}

TEST(GifDamage, CutAtEveryByte) {
    for (const GifFile& file : SmallFiles()) {
        const std::vector<std::byte> bytes = file.Make();
        const Pixels whole = PixelsOf(Decode(bytes));
        ASSERT_EQ(whole.size(), 9U);
        std::size_t drawnBefore = 0;
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            SCOPED_TRACE(length);
            const DecodedPicture decoded = Decode(std::span(bytes).first(length));
            EXPECT_LE(decoded.status.offset, length);
            if (decoded.error) {
                EXPECT_EQ(decoded.error, ErrorNumber::InvalidPicture);
                EXPECT_EQ(drawnBefore, 0U);
                continue;
            }
            const Pixels pixels = PixelsOf(decoded);
            ASSERT_EQ(pixels.size(), 9U);
            const auto drawn = static_cast<std::size_t>(
                std::ranges::count_if(pixels, [](Pixel pixel) { return pixel != Untouched; }));
            EXPECT_GE(drawn, drawnBefore);
            if (drawn < 9) {
                EXPECT_EQ(decoded.status.outcome, Outcome::Truncated);
            } else if (pixels == whole) {
                EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
            } else {
                EXPECT_FALSE(file.images[0].control);  // a part is missing
            }
            drawnBefore = drawn;
        }
        EXPECT_EQ(drawnBefore, 9U);
    }
}

TEST(GifDamage, EveryPixelThatIsThereIsShown) {
    // Nine bits a code: the last whole byte of each cut is used, wherever the block ends.
    std::vector<unsigned> pixels(200, 1);
    const std::vector<std::byte> bytes = GifFile{.width = 10,
                                                 .height = 20,
                                                 .table = Table,
                                                 .images = {{.width = 10, .height = 20, .pixels = pixels}}}
                                             .Make();
    const std::size_t data = 13 + 12 + 8 + 10 + 2;  // headers and the length of the first block
    for (std::size_t length = data + 3; length < data + 200; ++length) {
        const DecodedPicture decoded = Decode(std::span(bytes).first(length));
        EXPECT_EQ(decoded.status.outcome, Outcome::Truncated);
        const Pixels shown = PixelsOf(decoded);
        const std::size_t codes = (length - data) * 8 / 9;
        EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(shown, Red)), codes - 1) << length;
    }
}

TEST(GifDamage, MissingTrailerAndEndOfDataAreNoDamage) {
    GifFile file{.table = Table, .images = {{.pixels = {1, 2, 3, 0}}}, .trailer = false};
    std::vector<std::byte> bytes = file.Make();
    EXPECT_EQ(Decode(bytes).status.outcome, Outcome::Complete);
    bytes.pop_back();
    EXPECT_EQ(Decode(bytes).status.outcome, Outcome::Complete);
}

TEST(GifDamage, JunkBehindTheFirstFrame) {
    const DecodedPicture decoded =
        Decode(GifFile{.table = Table,
                       .images = {{.pixels = {1, 2, 3, 0}}, {.pixels = {1, 1, 1, 1}}},
                       .between = Bytes().Text("junk")}
                   .Make());
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
    EXPECT_EQ(decoded.picture.frames, 1);
}

DecodedPicture DecodeData(const Bytes& data, unsigned codeSize = 2) {
    return Decode(GifFile{.table = Table, .images = {{.codeSize = codeSize, .data = data}}}.Make());
}

TEST(GifDamage, CodesThatCannotBe) {
    const DecodedPicture beyond =
        DecodeData(GifCodes().Put(4, 3).Put(1, 3).Put(2, 3).Put(4, 3).Put(7, 3).Put(3, 3).Blocks());
    EXPECT_EQ(beyond.status.outcome, Outcome::Corrupt);
    EXPECT_EQ(PixelsOf(beyond), (Pixels{Red, Green, Untouched, Untouched}));
    // Nothing before it: there is no picture.
    EXPECT_EQ(DecodeData(GifCodes().Put(4, 3).Put(7, 3).Blocks()).error, ErrorNumber::InvalidPicture);
}

TEST(GifDamage, FewerPixelsThanTheImageHas) {
    const DecodedPicture ended = DecodeData(GifCodes().Put(4, 3).Put(1, 3).Put(5, 3).Blocks());
    EXPECT_EQ(ended.status.outcome, Outcome::Truncated);
    EXPECT_EQ(PixelsOf(ended), (Pixels{Red, Untouched, Untouched, Untouched}));
    EXPECT_EQ(DecodeData(GifCodes().Put(4, 3).Put(5, 3).Blocks()).error, ErrorNumber::InvalidPicture);
    EXPECT_EQ(DecodeData(Bytes().U8({0})).error, ErrorNumber::InvalidPicture);
}

TEST(GifDamage, CodeSizes) {
    for (const unsigned size : {0U, 1U, 9U, 11U, 12U, 13U, 255U}) {
        const DecodedPicture decoded = DecodeData(Bytes().U8({4, 0x8C, 0x2D, 0x99, 0x87, 0}), size);
        EXPECT_NE(decoded.error.has_value(), !decoded.picture.Empty());
        EXPECT_TRUE(size <= 8 || decoded.error.has_value());
    }
}

TEST(GifDamage, FlippedBytes) {
    for (const GifFile& file : SmallFiles()) {
        const std::vector<std::byte> bytes = file.Make();
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            for (const unsigned flip : {0x01U, 0x10U, 0x80U, 0xFFU}) {
                std::vector<std::byte> flipped = bytes;
                flipped[i] ^= static_cast<std::byte>(flip);
                const DecodedPicture decoded = Decode(flipped);
                EXPECT_NE(decoded.error.has_value(), !decoded.picture.Empty());
            }
        }
    }
}

TEST(GifDamage, ScreensOverTheLimits) {
    const auto screen = [](int side) {
        return Decode(
            GifFile{.width = side, .height = side, .table = Table, .images = {{.pixels = {1, 2, 3, 0}}}}
                .Make());
    };
    EXPECT_EQ(screen(65535).error, ErrorNumber::OutOfMemory);
    const DecodedPicture large = screen(16384);  // just within
    EXPECT_FALSE(large.error.has_value());
    EXPECT_EQ(large.picture.Width(), 16384);
}

TEST(GifDamage, AnImageThatExpandsEnormouslyOffTheScreenEnds) {
    // Each code stands for one pixel more than the one before: eight million pixels in six kilobytes.
    GifCodes codes;
    for (int round = 0; round < 40; ++round) {
        codes.Put(256, round == 0 ? 9 : 12).Put(1, 9);
        for (unsigned next = 258; next < 4096; ++next) {
            unsigned bits = 9;
            while ((1U << bits) <= next)
                ++bits;
            codes.Put(next, bits);
        }
    }
    const std::vector<std::byte> bytes =
        GifFile{.width = 1,
                .height = 1,
                .table = Table,
                .images = {{.width = 65535, .height = 65535, .interlaced = true, .data = codes.Blocks()}}}
            .Make();
    const DecodedPicture decoded = Decode(bytes);
    EXPECT_EQ(decoded.status.reason, "image over the limits");
    EXPECT_EQ(PixelsOf(decoded), Pixels{Red});
}

/// Remembers what the rows were when they were told to be final.
class WatchingSink final : public PictureSink {
  public:
    Surface* Begin(const PictureInfo& info) override {
        surface = Surface(info.width, info.height);
        return &surface;
    }
    void RowsReady(int count) override {
        for (; told < count; ++told) {
            const auto row = surface.Row(told);
            final.insert(final.end(), row.begin(), row.end());
        }
    }
    [[nodiscard]] bool Cancelled() const override { return cancelled; }

    Surface surface;
    int told = 0;
    Pixels final;
    bool cancelled = false;
};

TEST(GifDamage, RowsThatWereToldDoNotChangeAnyMore) {
    for (const GifFile& file : SmallFiles()) {
        const std::vector<std::byte> bytes = file.Make();
        MemorySource source(bytes);
        WatchingSink sink;
        EXPECT_EQ(DecodeGif(source, sink).outcome, Outcome::Complete);
        EXPECT_EQ(sink.told, 3);
        EXPECT_TRUE(std::ranges::equal(sink.final, sink.surface.Pixels()));
    }
}

TEST(GifDamage, CancelledBeforeItBegins) {
    const std::vector<std::byte> bytes = SmallFiles()[0].Make();
    MemorySource source(bytes);
    WatchingSink sink;
    sink.cancelled = true;
    const DecodeStatus status = DecodeGif(source, sink);
    EXPECT_EQ(status.outcome, Outcome::Truncated);
    EXPECT_FALSE(status.someRows);
}

}  // namespace
}  // namespace tavrix::test
