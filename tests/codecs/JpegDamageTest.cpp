#include <gtest/gtest.h>

#include <algorithm>

#include "codecs/Decoding.h"
#include "codecs/JpegFile.h"
#include "codecs/TestBytes.h"

namespace tavrix::test {
namespace {

JpegFile Stripes() {
    return BlockPicture(3, 4, [](int column, int row) {
        return std::array{60 * row, 200 - 40 * column, 90};
    });
}

std::size_t Find(const std::vector<std::byte>& bytes, unsigned marker) {
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
        if (bytes[i] == std::byte{0xFF} && bytes[i + 1] == static_cast<std::byte>(marker)) return i;
    }
    return bytes.size();
}

/// Bytes from the start of a file to behind the header of its scan.
std::size_t DataStart(const std::vector<std::byte>& bytes) {
    const std::size_t scan = Find(bytes, 0xDA);
    return scan + 2 + std::to_integer<std::size_t>(bytes[scan + 3]);
}

TEST(JpegDamage, CutAtEveryByte) {
    for (const bool progressive : {false, true}) {
        for (const int restart : {0, 2}) {
            JpegFile file = Stripes();
            file.progressive = progressive;
            file.restartBlocks = restart;
            file.exif = 6;
            const std::vector<std::byte> bytes = file.Make();
            for (std::size_t length = 0; length < bytes.size(); ++length) {
                const DecodedPicture decoded = Decode(std::span(bytes).first(length));
                if (decoded.error) {
                    EXPECT_EQ(decoded.error, ErrorNumber::InvalidPicture);
                    continue;
                }
                EXPECT_TRUE(decoded.status.someRows);
                EXPECT_EQ(decoded.picture.Width(), 32);
                // The last two bytes only say that this is the end.
                if (length + 3 < bytes.size()) {
                    EXPECT_EQ(decoded.status.outcome, Outcome::Truncated)
                        << length << " " << decoded.status.reason;
                }
            }
        }
    }
}

TEST(JpegDamage, CutPictureKeepsWhatCameBeforeAndNothingBelow) {
    const std::vector<std::byte> bytes = Stripes().Make();
    const std::vector<Pixel> whole = PixelsOf(Decode(bytes));
    const std::size_t start = DataStart(bytes);
    const std::size_t half = start + (bytes.size() - start) / 2;
    const std::vector<Pixel> cut = PixelsOf(Decode(std::span(bytes).first(half)));
    ASSERT_EQ(cut.size(), whole.size());
    EXPECT_TRUE(std::equal(whole.begin(), whole.begin() + 8 * 24, cut.begin()));
    EXPECT_EQ(cut.back(), Untouched);
}

TEST(JpegDamage, NothingBehindTheScanHeader) {
    const std::vector<std::byte> bytes = Stripes().Make();
    EXPECT_EQ(Decode(std::span(bytes).first(DataStart(bytes))).error, ErrorNumber::InvalidPicture);
}

TEST(JpegDamage, FlippedBytes) {
    for (const bool progressive : {false, true}) {
        JpegFile file = Stripes();
        file.progressive = progressive;
        file.exif = 5;
        const std::vector<std::byte> bytes = file.Make();
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            for (const unsigned flip : {0x01U, 0x80U, 0xFFU}) {
                std::vector<std::byte> damaged = bytes;
                damaged[i] ^= static_cast<std::byte>(flip);
                const DecodedPicture decoded = Decode(damaged);
                EXPECT_NE(decoded.error.has_value(), !decoded.picture.Empty());
            }
        }
    }
}

TEST(JpegDamage, CorruptDataAreToldSo) {
    std::vector<std::byte> bytes = Stripes().Make();
    // A restart marker where none belongs.
    const std::size_t at = DataStart(bytes) + 40;
    bytes[at] = std::byte{0xFF};
    bytes[at + 1] = std::byte{0xD3};
    const DecodedPicture decoded = Decode(bytes);
    ASSERT_FALSE(decoded.error.has_value());
    EXPECT_EQ(decoded.status.outcome, Outcome::Corrupt);
    EXPECT_NE(decoded.status.offset, 0U);
}

TEST(JpegDamage, JunkBehindTheEndIsNoDamage) {
    std::vector<std::byte> bytes = Stripes().Make();
    bytes.insert(bytes.end(), 1000, std::byte{0x55});
    EXPECT_EQ(Decode(bytes).status.outcome, Outcome::Complete);
}

TEST(JpegDamage, TwelveBitsAreRefused) {
    std::vector<std::byte> bytes = Stripes().Make();
    bytes[Find(bytes, 0xC0) + 4] = std::byte{12};
    EXPECT_EQ(Decode(bytes).error, ErrorNumber::InvalidPicture);
}

TEST(JpegDamage, EndlessScansEnd) {
    JpegFile file = Stripes();
    file.progressive = true;
    const std::vector<std::byte> bytes = file.Make();
    // The last scan again and again.
    std::size_t scan = 0;
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
        if (bytes[i] == std::byte{0xFF} && bytes[i + 1] == std::byte{0xDA}) scan = i;
    }
    Bytes many;
    many.Append(std::span(bytes).first(bytes.size() - 2));
    for (int i = 0; i < 5000; ++i)
        many.Append(std::span(bytes).subspan(scan, bytes.size() - 2 - scan));
    many.U8({0xFF, 0xD9});
    const DecodedPicture decoded = Decode(many.Get());
    ASSERT_FALSE(decoded.error.has_value());
    EXPECT_EQ(decoded.status.outcome, Outcome::Corrupt);
    EXPECT_LT(decoded.status.offset, many.Size() / 2);
}

/// The height in the header, made huge: what follows the data is left untouched, so it costs nothing.
TEST(JpegDamage, HugeHeight) {
    std::vector<std::byte> bytes = Stripes().Make();
    const std::size_t frame = Find(bytes, 0xC0);
    bytes[frame + 5] = std::byte{0xF0};
    const DecodedPicture decoded = Decode(bytes);
    ASSERT_FALSE(decoded.error.has_value());
    EXPECT_EQ(decoded.status.outcome, Outcome::Truncated);
    EXPECT_EQ(decoded.picture.Height(), 0xF000 + 32);
    EXPECT_EQ(decoded.picture.pixels->Whole().Row(60)[0], Untouched);
}

TEST(JpegDamage, HugeProgressiveOfNothingIsRefused) {
    JpegFile file = Stripes();
    file.progressive = true;
    std::vector<std::byte> bytes = file.Make();
    const std::size_t frame = Find(bytes, 0xC2);
    for (const std::size_t i : {5U, 7U})
        bytes[frame + i] = std::byte{0x30};
    EXPECT_EQ(Decode(bytes).error, ErrorNumber::InvalidPicture);
}

TEST(JpegDamage, OverTheLimits) {
    std::vector<std::byte> bytes = Stripes().Make();
    const std::size_t frame = Find(bytes, 0xC0);
    for (const std::size_t i : {5U, 7U})
        bytes[frame + i] = std::byte{0xFF};
    for (const std::size_t i : {6U, 8U})
        bytes[frame + i] = std::byte{0x00};
    EXPECT_EQ(Decode(bytes).error, ErrorNumber::OutOfMemory);
}

TEST(JpegDamage, ExifThatLies) {
    JpegFile file = Stripes();
    file.exif = 6;
    const std::vector<std::byte> bytes = file.Make();
    const std::size_t segment = Find(bytes, 0xE1);
    const std::size_t length = std::to_integer<std::size_t>(bytes[segment + 3]);
    for (std::size_t i = segment + 4; i < segment + 2 + length; ++i) {
        for (const unsigned value : {0x00U, 0x7FU, 0xFFU}) {
            std::vector<std::byte> damaged = bytes;
            damaged[i] = static_cast<std::byte>(value);
            EXPECT_EQ(Decode(damaged).status.outcome, Outcome::Complete);
        }
    }
}

}  // namespace
}  // namespace tavrix::test
