#include <gtest/gtest.h>

#include "codecs/EmfFile.h"
#include "codecs/MetafilePicture.h"
#include "codecs/WmfFile.h"

namespace tavrix::test {
namespace {

Bytes Dib() {
    return Bytes().U32(40).I32(2).I32(2).U16(1).U16(24).Zeros(24).U32(0xFF).U32(0xFF00).U32(0xFF0000).U32(0);
}

/// One record of each family.
WmfFile PlainOfAllKinds() {
    WmfFile file = WmfFile({{.right = 12, .bottom = 9}}).Window(0, 0, 12, 9).Pen(0, 1, RedValue).Select(0);
    file.Brush(2, BlueValue, 3).Select(1).Rectangle(1, 1, 9, 7).Polygon({1, 1, 8, 2, 4, 7});
    file.Record(0x0538, {2, 3, 3, 0, 0, 4, 0, 4, 4, 5, 5, 9, 5, 9, 9});
    file.Record(0x0817, {0, 6, 6, 0, 8, 8, 1, 1}).Record(0x061C, {2, 2, 8, 8, 1, 1});
    file.Record(0x001E, {}).Record(0x0416, {6, 6, 1, 1}).Record(0x0127, {-1});
    file.Record(0x02FB, Bytes().U16(6).Zeros(16).Text("Arial").Zeros(3)).Select(2);
    file.Record(0x0521, Bytes().U16(2).Text("ab").U16(1).U16(1));
    file.Record(0x0A32,
                Bytes().U16(1).U16(1).U16(2).U16(6).U16(0).U16(0).U16(9).U16(9).Text("ab").U16(4).U16(4));
    file.Record(0x0142, Bytes().U16(5).U16(0).Append(Dib().Get())).Select(3);
    file.Record(
        0x06FF,
        Bytes().U16(0).U16(6).U32(0).U16(0).U16(1).U16(2).Zeros(8).U16(2).U16(0).U16(4).U16(0).U16(4).U16(2));
    file.Record(0x012B, {4}).Record(0x012C, {4});
    file.Record(0x00F7, Bytes().U16(0x300).U16(1).U32(RedValue)).Record(0x0234, {5});
    Bytes stretch = Bytes().U32(0x00CC0020U).U16(0);
    for (const unsigned word : {2U, 2U, 0U, 0U, 4U, 4U, 2U, 2U})
        stretch.U16(word);
    file.Record(0x0F43, stretch.Append(Dib().Get()));
    return file.Record(0x061D, {0x21, 0xF0, 2, 2, 7, 9}).Delete(0);
}

EmfFile EnhancedOfAllKinds() {
    EmfFile file = EmfFile({.width = 12, .height = 9});
    file.Record(17, {8})
        .Record(9, {12, 9})
        .Record(11, {12, 9})
        .Pen(1, 0, 1, RedValue)
        .Brush(2, 2, BlueValue, 3);
    file.Rectangle(1, 1, 9, 7).Polygon({1, 1, 8, 2, 4, 7}).Poly(2, {0, 0, 3, 3, 6, 0, 9, 3});
    Bytes rings = EmfFile::Bounds().U32(2).U32(6).U32(3).U32(3);
    for (const int value : {0, 0, 4, 0, 4, 4, 5, 5, 9, 5, 9, 9})
        rings.I32(value);
    file.Record(8, rings).Record(47, {0, 0, 8, 8, 8, 4, 4, 0});
    file.Record(56, EmfFile::Bounds().U32(2).I32(1).I32(1).I32(5).I32(5).U8({6, 2}));
    file.Record(33).Record(59).Record(27, {1, 1}).Record(54, {9, 9}).Record(60).Record(64, EmfFile::Bounds());
    const Bytes region = Bytes().U32(32).U32(1).U32(1).U32(16).Zeros(16).I32(0).I32(0).I32(9).I32(9);
    file.Record(75, Bytes().U32(48).U32(5).Append(region.Get()));
    file.Record(71, EmfFile::Bounds().U32(48).U32(2).Append(region.Get())).Record(34, {-1});
    file.Record(82, Bytes().I32(3).I32(-6).Zeros(20).U16('A').Zeros(62)).Select(3);
    Bytes text = EmfFile::Bounds().U32(1).U32(0).U32(0).I32(1).I32(1).U32(2).U32(76).U32(0).Zeros(16).U32(80);
    file.Record(84, text.U16('a').U16('b').I32(4).I32(4));
    Bytes stretch =
        EmfFile::Bounds().I32(2).I32(2).I32(0).I32(0).I32(2).I32(2).U32(80).U32(40).U32(120).U32(16);
    file.Record(81, stretch.U32(0).U32(0x00CC0020U).I32(4).I32(4).Append(Dib().Get()));
    Bytes gradient =
        EmfFile::Bounds().U32(2).U32(1).U32(0).I32(0).I32(0).U32(0xFF00).U32(0).I32(4).I32(4).U32(0).U32(
            0xFF00);
    file.Record(118, gradient.U32(0).U32(1));
    file.Record(49, Bytes().U32(4).U16(0x300).U16(1).U32(RedValue)).Record(48, {4});
    Bytes pen =
        Bytes().U32(5).Zeros(16).U32(0x10007U).U32(2).U32(0).U32(RedValue).U32(0).U32(2).U32(3).U32(1);
    return file.Record(95, pen).Select(5).Record(27, {1, 1}).Record(54, {9, 9}).Record(40, {5});
}

void ExpectSane(const MetafilePicture& picture) {
    EXPECT_NE(picture.Decoded().error.has_value(), !picture.Decoded().picture.Empty());
}

TEST(MetafileDamage, WholeFilesOfAllKindsAreComplete) {
    EXPECT_EQ(MetafilePicture(PlainOfAllKinds().Make()).Status().outcome, Outcome::Complete);
    EXPECT_EQ(MetafilePicture(EnhancedOfAllKinds().Make()).Status().outcome, Outcome::Complete);
}

TEST(MetafileDamage, CutAtEveryByte) {
    for (const std::vector<std::byte>& file : {PlainOfAllKinds().Make(), EnhancedOfAllKinds().Make()}) {
        bool drawn = false;
        for (std::size_t length = 0; length < file.size(); ++length) {
            SCOPED_TRACE(length);
            const MetafilePicture picture({file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)});
            ExpectSane(picture);
            EXPECT_LE(picture.Status().offset, length);
            EXPECT_FALSE(drawn && picture.Decoded().error) << "what was drawn once is shown";
            drawn = drawn || !picture.Decoded().error;
            // Only the end record's own fields may be missing without harm.
            EXPECT_TRUE(length + 20 >= file.size() || picture.Status().outcome != Outcome::Complete);
        }
        EXPECT_TRUE(drawn);
    }
}

/// Every 16 and 32 bits of the files, set to the extremes in turns.
TEST(MetafileDamage, EveryFieldAtItsExtremes) {
    for (const std::vector<std::byte>& file : {PlainOfAllKinds().Make(), EnhancedOfAllKinds().Make()}) {
        for (std::size_t at = 0; at + 4 <= file.size(); at += 2) {
            for (const std::uint32_t value :
                 {0U, 0xFFFFU, 0x7FFFU, 0x8000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
                std::vector<std::byte> changed = file;
                const std::size_t size = value > 0xFFFFU ? 4 : 2;
                // The size of the picture has tests of its own, and large ones take long.
                if (at < 40 || (at >= 72 && at < 88)) continue;
                for (std::size_t i = 0; i < size; ++i)
                    changed[at + i] = static_cast<std::byte>(value >> (8 * i));
                SCOPED_TRACE(at);
                SCOPED_TRACE(value);
                ExpectSane(MetafilePicture(changed));
            }
        }
    }
}

TEST(MetafileDamage, WithoutADrawingRecordThereIsNothingToShow) {
    const MetafilePicture wmf(WmfFile().Pen(0, 1, 0).Select(0).MakeOpen());
    EXPECT_EQ(wmf.Decoded().error, ErrorNumber::InvalidPicture);
    const MetafilePicture emf(EmfFile().Pen(1, 0, 1, 0).MakeOpen());
    EXPECT_EQ(emf.Decoded().error, ErrorNumber::InvalidPicture);
}

TEST(MetafileDamage, ABrokenRecordWhoseLengthLeadsToTheNextIsLeftOut) {
    const MetafilePicture emf(EmfFile()
                                  .Fill(1, 1, 3, 3, RedValue)
                                  .Record(3, EmfFile::Bounds().U32(99))
                                  .Fill(4, 4, 6, 6, GreenValue)
                                  .Make());
    EXPECT_EQ(emf.Status().outcome, Outcome::Corrupt);
    EXPECT_EQ(emf.Status().reason, "broken record");
    EXPECT_EQ(emf.Count('R'), 4);
    EXPECT_EQ(emf.Count('G'), 4);
    const MetafilePicture wmf(
        WmfFile().Fill(1, 1, 3, 3, RedValue).Record(0x0324, {99}).Fill(4, 4, 6, 6, GreenValue).Make());
    EXPECT_EQ(wmf.Status().outcome, Outcome::Corrupt);
    EXPECT_EQ(wmf.Status().reason, "broken record");
    EXPECT_EQ(wmf.Count('R'), 4);
    EXPECT_EQ(wmf.Count('G'), 4);
}

TEST(MetafileDamage, ABrokenObjectKeepsItsPlace) {
    // A region that cannot be read, and behind it a brush: the second place of the table is the brush's.
    WmfFile file = WmfFile().Record(0x06FF, {0, 6, 0, 0, 0, 9, 0, 0, 0, 0, 0}).Brush(0, GreenValue).Select(1);
    const MetafilePicture picture(file.Record(0x061D, {0x21, 0xF0, 4, 4, 2, 2}).Make());
    EXPECT_EQ(picture.Status().outcome, Outcome::Corrupt);
    EXPECT_EQ(picture.Count('G'), 16);
}

TEST(MetafileDamage, WhatWasDrawnBeforeARecordOfNoSensibleLengthIsShown) {
    const Bytes trash = Bytes().U32(0x12345678U).U32(0x9ABCDEF1U);
    const MetafilePicture emf(EmfFile()
                                  .Fill(1, 1, 3, 3, RedValue)
                                  .Sized(3, 28, EmfFile::Bounds().U32(99).Append(trash.Get()))
                                  .Fill(0, 0, 16, 16, 0)
                                  .Make());
    EXPECT_EQ(emf.Status().outcome, Outcome::Corrupt);
    EXPECT_EQ(emf.Count('R'), 4);
    EXPECT_EQ(emf.Count('#'), 0);
    const MetafilePicture wmf(WmfFile()
                                  .Fill(1, 1, 3, 3, RedValue)
                                  .Sized(4, 0x0324, Bytes().U16(99).Append(trash.Get()))
                                  .Fill(0, 0, 16, 16, 0)
                                  .Make());
    EXPECT_EQ(wmf.Status().outcome, Outcome::Corrupt);
    EXPECT_EQ(wmf.Count('R'), 4);
    EXPECT_EQ(wmf.Count('#'), 0);
}

/// A poster has fewer pixels than its size would give it, and all of the drawing.
TEST(MetafileDamage, AFewBytesDoNotTakeAGigabyte) {
    constexpr std::int64_t Most = 64LL << 20U;
    const auto expectSmaller = [](const std::vector<std::byte>& file, double ratio) {
        ASSERT_LT(file.size(), 3000U);
        const MetafilePicture picture(file);
        ASSERT_FALSE(picture.Decoded().error);
        const double width = picture.Decoded().picture.Width();
        const double height = picture.Decoded().picture.Height();
        EXPECT_LE(width * height, double(Most));
        EXPECT_GE(width * height, 0.95 * double(Most));
        EXPECT_NEAR(width / height, ratio, 0.01 * ratio);
        const auto at = [&](double x, double y) { return picture.At(int(x * width), int(y * height)); };
        EXPECT_EQ(at(0.24, 0.24), WhitePixel);
        EXPECT_EQ(at(0.26, 0.26), Red);
        EXPECT_EQ(at(0.74, 0.74), Red);
        EXPECT_EQ(at(0.76, 0.76), WhitePixel);
    };
    expectSmaller(
        EmfFile({.width = 15'880, .height = 15'880}).Fill(3970, 3970, 11'910, 11'910, RedValue).Make(), 1);
    expectSmaller(
        EmfFile({.width = 20'000, .height = 10'000}).Fill(5000, 2500, 15'000, 7500, RedValue).Make(), 2);
    expectSmaller(WmfFile({{.right = 4000, .bottom = 4000, .unitsPerInch = 20}})
                      .Fill(1000, 1000, 3000, 3000, RedValue)
                      .Make(),
                  1);
}

TEST(MetafileDamage, SizesBeyondTheLimitsAreRefused) {
    std::vector<std::byte> file = EmfFile().Make();
    for (const std::size_t side : {32U, 36U}) {
        for (std::size_t i = 0; i < 4; ++i)
            file[side + i] = static_cast<std::byte>(i == 3 ? 0x7F : 0xFF);
    }
    EXPECT_EQ(MetafilePicture(file).Decoded().error, ErrorNumber::OutOfMemory);
}

/// 200,000 lines are a map, not an attack.
TEST(MetafileDamage, ALargeDrawingIsDrawnWhole) {
    EmfFile file({.width = 1000, .height = 700});
    file.Record(27, {0, 0});
    for (int i = 0; i < 200'000; ++i)
        file.Record(54, {50 + i % 600 + int(i * 7919LL % 150), 50 + i / 600 + int(i * 104'729LL % 150)});
    file.Fill(990, 690, 1000, 700, RedValue);
    const MetafilePicture picture(file.Make());
    EXPECT_EQ(picture.Status().outcome, Outcome::Complete) << picture.Status().reason;
    EXPECT_EQ(picture.At(995, 695), Red);
}

/// A mebibyte of whatever costs most: what it asks for is paid until the budget is used up, or so cheap that all of it
/// is drawn.
TEST(MetafileDamage, WhatCostsMostIsPaid) {
    constexpr std::size_t Much = 1U << 20U;
    const EmfFile large = EmfFile({.width = 4000, .height = 4000});
    std::vector<EmfFile> files;
    std::vector<EmfFile> cheapFiles;
    const auto filled = [&](EmfFile file, const auto& add) {
        while (file.Size() < Much)
            add(file);
        return file;
    };
    const auto fillUp = [&](const EmfFile& file, const auto& add) { files.push_back(filled(file, add)); };
    const auto fillUpCheaply = [&](const EmfFile& file, const auto& add) {
        cheapFiles.push_back(filled(file, add));
    };
    fillUp(EmfFile(large).Brush(1, 2, RedValue, 5), [](EmfFile& file) { file.Rectangle(0, 0, 4000, 4000); });
    fillUp(EmfFile(large).Brush(1, 0, RedValue), [](EmfFile& file) { file.Record(42, {0, 0, 4000, 4000}); });
    fillUp(EmfFile(large).Record(20, {6}), [](EmfFile& file) { file.Record(42, {0, 0, 4000, 4000}); });
    fillUpCheaply(EmfFile(large).Record(30, {0, 0, 10, 10}), [](EmfFile& file) { file.Record(33); });
    fillUpCheaply(large, [](EmfFile& file) { file.Record(29, {100, 100, 3000, 3000}).Record(26, {3, 3}); });
    fillUp(EmfFile(large).Brush(1, 0, RedValue), [](EmfFile& file) {
        file.Record(53, Bytes().I32(5).I32(5).U32(WhiteValue).U32(1)).Record(20, {6});
    });
    fillUp(EmfFile(large).Record(49, Bytes().U32(1).U16(0x300).U16(60'000).Zeros(240'000)).Record(48, {1}),
           [](EmfFile& file) {
               file.Record(50, {1, 0, 0});
           });
    fillUp(EmfFile(large).Pen(1, 2, 0, 0), [](EmfFile& file) {
        file.Record(27, {0, 0}).Record(54, {2'000'000'000, 1'999'999'999});
    });
    fillUp(EmfFile(large).Record(59), [](EmfFile& file) { file.Record(42, {0, 0, 4000, 3000}); });
    files.back().Record(60).Record(63, EmfFile::Bounds());
    Bytes dashed = Bytes().U32(1).Zeros(16).U32(0x10007U).U32(3).U32(0).U32(0).U32(0).U32(Much / 8);
    for (std::size_t i = 0; i < Much / 8; ++i)
        dashed.U32(5);
    EmfFile& lines = cheapFiles.emplace_back(EmfFile(large).Record(95, dashed).Select(1));
    for (int i = 0; i < 80'000; ++i)
        lines.Record(54, {9, 9});
    int fonts = 0;
    fillUp(large, [&](EmfFile& file) {
        Bytes font = Bytes().I32(1).I32(-12 - fonts % 500).Zeros(24);
        for (unsigned letter = 0; letter < 32; ++letter)
            font.U16(letter < 4 ? 'A' + ((static_cast<unsigned>(fonts) >> (4 * letter)) & 15U) : 0U);
        Bytes text = EmfFile::Bounds().U32(1).U32(0).U32(0).I32(9).I32(9).U32(2).U32(76).U32(0).Zeros(20);
        file.Record(82, font).Select(1).Record(84, text.U16('a').U16('b'));
        ++fonts;
    });
    fillUp(EmfFile(large).Record(82, Bytes().I32(1).I32(-3000).Zeros(84)).Select(1), [](EmfFile& file) {
        Bytes text = EmfFile::Bounds().U32(1).U32(0).U32(0).I32(9).I32(9).U32(20).U32(76).U32(0).Zeros(20);
        for (unsigned letter = 0; letter < 20; ++letter)
            text.U16('A' + letter);
        file.Record(84, text);
    });
    const auto expectEnd = [](const EmfFile& file, Outcome outcome, std::string_view reason) {
        const MetafilePicture picture(file.Make());
        ExpectSane(picture);
        EXPECT_EQ(picture.Status().outcome, outcome);
        EXPECT_EQ(picture.Status().reason, reason);
    };
    // By a small part of what a drawing may cost, since all of it takes seconds.
    for (std::size_t i = 0; i < files.size(); ++i) {
        SCOPED_TRACE(i);
        const auto picture = MetafilePicture::Within<100'000'000>(files[i].Make());
        ExpectSane(picture);
        EXPECT_EQ(picture.Status().outcome, Outcome::Truncated);
        EXPECT_EQ(picture.Status().reason, "more work than is done");
    }
    for (std::size_t i = 0; i < cheapFiles.size(); ++i) {
        SCOPED_TRACE(i);
        expectEnd(cheapFiles[i], Outcome::Complete, "");
    }
}

}  // namespace
}  // namespace tavrix::test
