#include <gtest/gtest.h>

#include "codecs/EmfFile.h"
#include "codecs/MetafilePicture.h"
#include "codecs/WmfFile.h"
#include "imaging/metafile/CodePages.h"
#include "imaging/vector/FontBook.h"
#include "imaging/vector/FontFile.h"
#include "imaging/vector/FontFinder.h"

namespace tavrix::test {
namespace {

bool AnyFont() {
    vector::FontBook book;
    return book.Find({.family = "Arial", .height = 20}) != nullptr;
}

class MetafileText : public testing::Test {
  protected:
    void SetUp() override {
        if (!AnyFont()) GTEST_SKIP() << "no outline font is installed";
    }
};

constexpr int Left = 0;
constexpr int Top = 1;
constexpr int Right = 2;
constexpr int Bottom = 3;

struct FontKind {
    int height = -20;
    int escapement = 0;
    unsigned charset = 0;
    bool underline = false;
    const char* face = "Arial";
};

Bytes PlainFont(const FontKind& font) {
    Bytes body;
    for (const int value : {font.height, 0, font.escapement, font.escapement, 400})
        body.U16(static_cast<std::uint32_t>(value) & 0xFFFFU);
    body.U8({0, font.underline ? 1U : 0U, 0, font.charset, 0, 0, 0, 0});
    return body.Text(font.face).Zeros(2);
}

Bytes WideFont(const FontKind& font, int place = 1) {
    Bytes body;
    body.I32(place).I32(font.height).I32(0).I32(font.escapement).I32(font.escapement).I32(400);
    body.U8({0, font.underline ? 1U : 0U, 0, font.charset, 0, 0, 0, 0});
    const std::string_view face = font.face;
    for (std::size_t i = 0; i < 32; ++i)
        body.U16(i < face.size() ? static_cast<unsigned char>(face[i]) : 0U);
    return body;
}

WmfFile Plain(const FontKind& font = {}) {
    return WmfFile({{.right = 200, .bottom = 100}})
        .Record(0x02FB, PlainFont(font))
        .Select(0)
        .Record(0x0102, {1});
}

EmfFile Wide(const FontKind& font = {}) {
    return EmfFile({.width = 200, .height = 100}).Record(82, WideFont(font)).Select(1).Record(18, {1});
}

WmfFile TextOut(WmfFile file, int x, int y, std::string_view text) {
    Bytes body = Bytes().U16(static_cast<std::uint32_t>(text.size())).Text(text).Zeros(text.size() % 2);
    return file.Record(0x0521, body.U16(static_cast<std::uint32_t>(y)).U16(static_cast<std::uint32_t>(x)));
}

EmfFile TextOut(EmfFile file, int x, int y, std::u16string_view text, const std::vector<int>& advances = {},
                std::uint32_t options = 0, const std::vector<int>& box = {0, 0, 0, 0}, unsigned mode = 2) {
    Bytes body = EmfFile::Bounds().U32(mode).U32(EmfFile::Float(1)).U32(EmfFile::Float(1)).I32(x).I32(y);
    const auto count = static_cast<std::uint32_t>(text.size());
    const std::uint32_t characters = 2 * count + 2 * (count % 2);
    body.U32(count).U32(76).U32(options);
    for (const int side : box)
        body.I32(side);
    body.U32(advances.empty() ? 0 : 76 + characters);
    for (const char16_t unit : text)
        body.U16(unit);
    body.Zeros(2 * (count % 2));
    for (const int advance : advances)
        body.I32(advance);
    return file.Record(84, body);
}

template <class File>
std::vector<int> InkOf(const File& file) {
    return MetafilePicture(file.Make()).Ink();
}

TEST_F(MetafileText, OfBothFormatsLooksAlike) {
    const MetafilePicture plain(TextOut(Plain(), 10, 20, "Hill").Make());
    const MetafilePicture wide(TextOut(Wide(), 10, 20, u"Hill").Make());
    EXPECT_GT(plain.Count('#'), 40);
    EXPECT_EQ(plain.Rows(), wide.Rows());
    const std::vector<int> ink = plain.Ink();
    EXPECT_NEAR(ink[Left], 11, 2);
    EXPECT_GT(ink[Top], 20);
    EXPECT_NEAR(ink[Bottom] - ink[Top], 15, 3) << "capitals of an em of 20";
}

TEST_F(MetafileText, IsAlignedToItsReferencePoint) {
    const auto aligned = [](int align) {
        return InkOf(TextOut(Plain().Record(0x012E, {align}), 100, 50, "HH"));
    };
    const std::vector<int> start = aligned(0);
    EXPECT_GE(start[Left], 100);
    EXPECT_GE(start[Top], 50);
    const std::vector<int> right = aligned(2);
    EXPECT_LE(right[Right], 101);
    EXPECT_GE(right[Left], 60);
    const std::vector<int> centre = aligned(6);
    EXPECT_NEAR((centre[Left] + centre[Right]) / 2.0, 100, 1.5);
    EXPECT_EQ(aligned(24)[Bottom], 50) << "on the baseline";
    const std::vector<int> bottom = aligned(8);
    EXPECT_LT(bottom[Bottom], 50);
    EXPECT_GT(bottom[Bottom], 40);
}

TEST_F(MetafileText, MovesTheCurrentPositionWhenAsked) {
    const WmfFile file = Plain().Record(0x012E, {1}).Record(0x0214, {20, 10});
    const std::vector<int> one = InkOf(TextOut(file, 150, 80, "HH"));
    EXPECT_NEAR(one[Left], 11, 2) << "the record's own place does not count";
    const std::vector<int> two = InkOf(TextOut(TextOut(file, 0, 0, "HH"), 0, 0, "HH"));
    EXPECT_EQ(two, InkOf(TextOut(file, 0, 0, "HHHH")));
}

TEST_F(MetafileText, HasTheDistancesThatAreTold) {
    const std::vector<int> ink = InkOf(TextOut(Wide(), 10, 20, u"HH", {100, 10}));
    EXPECT_NEAR(ink[Right] - ink[Left], 114, 3);
    Bytes body = Bytes().U16(20).U16(10).U16(2).U16(0).Text("HH").U16(100).U16(10);
    EXPECT_EQ(InkOf(Plain().Record(0x0A32, body)), ink);
    const std::vector<int> extra = InkOf(TextOut(Plain().Record(0x0108, {50}), 10, 20, "HH"));
    const std::vector<int> plain = InkOf(TextOut(Plain(), 10, 20, "HH"));
    EXPECT_NEAR(extra[Right] - plain[Right], 50, 1);
    const std::vector<int> justified = InkOf(TextOut(Plain().Record(0x020A, {1, 30}), 10, 20, "H H"));
    EXPECT_NEAR(justified[Right] - InkOf(TextOut(Plain(), 10, 20, "H H"))[Right], 30, 1);
}

TEST_F(MetafileText, IsTurnedByItsEscapement) {
    const std::vector<int> ink = InkOf(TextOut(Plain({.escapement = 900}), 100, 90, "HHHH"));
    EXPECT_GT(ink[Bottom] - ink[Top], 2 * (ink[Right] - ink[Left]));
    EXPECT_LE(ink[Bottom], 91) << "upwards";
    EXPECT_GE(ink[Left], 100);
}

TEST_F(MetafileText, PaintsItsCellsOnlyWhenOpaque) {
    const WmfFile green = Plain().Record(0x0201, Bytes().U32(GreenValue));
    EXPECT_EQ(MetafilePicture(TextOut(green, 10, 20, "HH").Make()).Count('G'), 0);
    const MetafilePicture opaque(TextOut(WmfFile(green).Record(0x0102, {2}), 10, 20, "HH").Make());
    EXPECT_GT(opaque.Count('G'), 200);
    EXPECT_EQ(opaque.Ink()[Top], 20);
    EXPECT_EQ(opaque.Ink()[Left], 10);
}

TEST_F(MetafileText, HasTheTextsColour) {
    const MetafilePicture red(TextOut(Plain().Record(0x0209, Bytes().U32(RedValue)), 10, 20, "HH").Make());
    EXPECT_GT(red.Count('R'), 20);
    EXPECT_EQ(red.Count('#'), 0);
}

TEST(MetafileTextBox, IsFilledWhenOpaqueWithoutAnyText) {
    EXPECT_EQ(MetafilePicture(WmfFile({{.right = 4, .bottom = 2}}).Fill(1, 0, 3, 1, RedValue).Make()).Rows(),
              (Art{".RR.", "...."}));
    const EmfFile file = EmfFile({.width = 4, .height = 2}).Record(25, Bytes().U32(RedValue));
    EXPECT_EQ(MetafilePicture(TextOut(file, 0, 0, u"", {}, 2, {1, 0, 3, 1}).Make()).Rows(),
              (Art{".RR.", "...."}));
}

TEST_F(MetafileText, IsClippedToItsBoxAlone) {
    const EmfFile clipped = TextOut(Wide(), 10, 20, u"HHHH", {}, 4, {10, 30, 30, 36});
    const std::vector<int> ink = InkOf(clipped);
    EXPECT_GE(ink[Top], 30);
    EXPECT_LE(ink[Bottom], 36);
    EXPECT_LE(ink[Right], 30);
    EXPECT_EQ(InkOf(EmfFile(clipped).Fill(0, 0, 200, 100, 0)), (std::vector<int>{0, 0, 200, 100}))
        << "what follows is not clipped";
}

TEST_F(MetafileText, StaysUprightOnACompatibleDevice) {
    const auto flipped = [](unsigned mode) {
        EmfFile file =
            Wide().Record(17, {8}).Record(9, {200, 100}).Record(11, {200, -100}).Record(12, {0, 100});
        return MetafilePicture(TextOut(file, 10, 50, u"L", {}, 0, {0, 0, 0, 0}, mode).Make());
    };
    const auto footBelow = [](const MetafilePicture& picture) {
        const std::vector<int> ink = picture.Ink();
        const int middle = (ink[Left] + ink[Right]) / 2 + 1;
        return picture.At(middle, ink[Bottom] - 2) != WhitePixel;
    };
    EXPECT_TRUE(footBelow(flipped(1)));
    EXPECT_FALSE(footBelow(flipped(2)));
}

/// Angles run against the clock where y counts downwards, and with it where a map turns y.
TEST_F(MetafileText, RunsTheOtherWayWhereTheMapTurnsY) {
    const auto turned = [](unsigned mode, int escapement) {
        EmfFile file = Wide({.escapement = escapement})
                           .Record(17, {8})
                           .Record(9, {200, 100})
                           .Record(11, {200, -100})
                           .Record(12, {0, 100})
                           .Record(22, {24});
        return InkOf(TextOut(file, 100, 50, u"HHH", {}, 0, {0, 0, 0, 0}, mode));
    };
    for (const unsigned mode : {1U, 2U}) {
        SCOPED_TRACE(mode);
        const std::vector<int> quarter = turned(mode, 900);
        EXPECT_GT(quarter[Bottom] - quarter[Top], 2 * (quarter[Right] - quarter[Left]));
        EXPECT_GE(quarter[Top], 50) << "downwards";
        EXPECT_LE(turned(mode, 2700)[Bottom], 51) << "upwards";
    }
    const WmfFile plain = WmfFile({{.left = 0, .top = 100, .right = 200, .bottom = 0}})
                              .Window(0, 100, 200, -100)
                              .Record(0x02FB, PlainFont({.escapement = 900}))
                              .Select(0)
                              .Record(0x012E, {24});
    EXPECT_GE(InkOf(TextOut(plain, 100, 50, "HHH"))[Top], 50);
    // Both axes turned: the picture lies on its head, and angles run as ever.
    const EmfFile both = Wide({.escapement = 900})
                             .Record(17, {8})
                             .Record(9, {200, 100})
                             .Record(11, {-200, -100})
                             .Record(12, {200, 100})
                             .Record(22, {24});
    EXPECT_LE(InkOf(TextOut(both, 100, 50, u"HHH", {}, 0, {0, 0, 0, 0}, 1))[Bottom], 51);
}

TEST_F(MetafileText, GrowsWithTheMap) {
    const WmfFile twice = WmfFile({{.right = 200, .bottom = 100}})
                              .Window(0, 0, 100, 50)
                              .Record(0x02FB, PlainFont({}))
                              .Select(0)
                              .Record(0x0102, {1});
    const std::vector<int> ink = InkOf(TextOut(twice, 5, 5, "H"));
    EXPECT_NEAR(ink[Bottom] - ink[Top], 29, 3);
}

TEST_F(MetafileText, AFileWithoutSizesHasRoomForIt) {
    const WmfFile file = WmfFile(std::nullopt).Record(0x02FB, PlainFont({})).Select(0).Record(0x0102, {1});
    const MetafilePicture picture(TextOut(file, 10, 20, "Hill").Make());
    const std::vector<int> whole = InkOf(TextOut(Plain(), 10, 20, "Hill"));
    EXPECT_EQ(picture.Ink(), whole) << "at the very place, nothing cut";
    EXPECT_GE(picture.Decoded().picture.Width(), whole[Right]);
    EXPECT_LE(picture.Decoded().picture.Width(), whole[Right] + 4);
    EXPECT_GE(picture.Decoded().picture.Height(), 40);
    EXPECT_LE(picture.Decoded().picture.Height(), 46);
    // By the current position, and with a font that was there before.
    const MetafilePicture moved(
        TextOut(WmfFile(file).Record(0x012E, {1}).Record(0x0214, {20, 110}), 0, 0, "Hill").Make());
    EXPECT_EQ(moved.Ink()[Left], whole[Left] + 100);
    EXPECT_EQ(moved.Ink()[Right], whole[Right] + 100);
}

TEST_F(MetafileText, IsUnderlined) {
    const std::vector<int> plain = InkOf(TextOut(Plain(), 10, 20, "HH"));
    const std::vector<int> line = InkOf(TextOut(Plain({.underline = true}), 10, 20, "HH"));
    EXPECT_GT(line[Bottom], plain[Bottom] + 1);
}

TEST_F(MetafileText, IsPartOfAPath) {
    const EmfFile path = TextOut(Wide().Record(59), 10, 20, u"H").Record(60);
    EXPECT_EQ(MetafilePicture(path.Make()).Count('.'), 20'000);
    const MetafilePicture filled(
        EmfFile(path).Stock(8).Brush(2, 0, RedValue).Record(62, EmfFile::Bounds()).Make());
    EXPECT_GT(filled.Count('R'), 20);
}

TEST_F(MetafileText, OfSmallAndOfSeveralRecords) {
    Bytes small = Bytes().I32(10).I32(20).U32(2).U32(0x300).U32(2).U32(0).U32(0).Text("HH");
    EXPECT_EQ(InkOf(Wide().Record(108, small)), InkOf(TextOut(Wide(), 10, 20, u"HH")));
    Bytes poly = EmfFile::Bounds().U32(2).U32(0).U32(0).U32(2);
    for (const int y : {20, 60}) {
        poly.I32(10).I32(y).U32(2).U32(120).U32(0).Zeros(16).U32(0);
    }
    EXPECT_EQ(InkOf(Wide().Record(97, poly.U16('H').U16('H'))),
              InkOf(TextOut(TextOut(Wide(), 10, 20, u"HH"), 10, 60, u"HH")));
}

TEST_F(MetafileText, ThatHasNoBoxMayLackTheRoomForIt) {
    Bytes lacking = EmfFile::Bounds().U32(2).U32(0).U32(0).I32(10).I32(20).U32(2).U32(60).U32(0x106);
    lacking.U32(64).U16('H').U16('H').I32(50).I32(50);
    const std::vector<int> ink = InkOf(TextOut(Wide(), 10, 20, u"HH", {50, 50}));
    EXPECT_EQ(InkOf(Wide().Record(84, lacking)), ink);
    EXPECT_EQ(InkOf(TextOut(Wide(), 10, 20, u"HH", {50, 50}, 0x100)), ink) << "most have it";
}

TEST_F(MetafileText, OfNoReasonableLengthEndsWhereTheLongestOneDoes) {
    constexpr std::size_t Longest = 0xFFFF;
    // Blanks that take no room, and a letter behind them.
    const auto inkBehind = [](std::size_t blanks, bool inPath) {
        const EmfFile before = inPath ? Wide().Stock(4).Record(59) : Wide();
        const std::u16string text = std::u16string(blanks, u' ') + u'H';
        EmfFile file = TextOut(before, 10, 20, text, std::vector<int>(text.size(), 0));
        if (inPath) file.Record(60).Record(62, EmfFile::Bounds());
        return InkOf(file);
    };
    for (const bool inPath : {false, true}) {
        SCOPED_TRACE(inPath);
        EXPECT_EQ(inkBehind(Longest - 1, inPath), inkBehind(0, inPath));
        EXPECT_NE(inkBehind(0, inPath), inkBehind(Longest, inPath));
        EXPECT_EQ(inkBehind(Longest, inPath), InkOf(Wide()));
    }
}

TEST_F(MetafileText, GlyphsOfTheClassicFontsAreCounted) {
    EXPECT_EQ(InkOf(TextOut(Wide(), 10, 20, u"\x2B\x2B", {}, 0x10)), InkOf(TextOut(Wide(), 10, 20, u"HH")));
}

TEST_F(MetafileText, GlyphsOfTheNamedFontAreItsOwn) {
    constexpr char16_t LetterBeyondAscii = u'\u00C4';
    for (const char* family : {"DejaVu Serif", "Liberation Serif", "Nimbus Roman"}) {
        vector::FontFinder finder;
        const vector::FoundFont found = finder.Find({.family = family});
        if (!found.sameFamily) continue;
        const auto file = vector::FontFile::Open(vector::OpenFontLibrary(), found.path, found.index);
        ASSERT_NE(file, nullptr);
        const auto glyph = static_cast<char16_t>(file->GlyphOf(LetterBeyondAscii));
        const EmfFile named = Wide({.face = family});
        EXPECT_EQ(
            MetafilePicture(TextOut(named, 10, 20, std::u16string(2, glyph), {}, 0x10).Make()).Rows(),
            MetafilePicture(TextOut(named, 10, 20, std::u16string(2, LetterBeyondAscii)).Make()).Rows());
        const auto beyond = static_cast<char16_t>(file->GlyphCount());
        EXPECT_EQ(MetafilePicture(TextOut(named, 10, 20, std::u16string(1, beyond), {}, 0x10).Make())
                      .Status()
                      .outcome,
                  Outcome::Complete);
        return;
    }
    GTEST_SKIP() << "none of these fonts is installed";
}

TEST(MetafileCodePages, GoByTheCharacterSet) {
    metafile::CodePages pages;
    EXPECT_EQ(pages.Decode("A\x80", 0).characters, U"A\u20AC");
    EXPECT_EQ(pages.Decode("A\x80", 1).characters, U"A\u20AC");
    EXPECT_EQ(pages.Decode("\xC0\xFF", 204).characters, U"\u0410\u044F");
    EXPECT_EQ(pages.Decode("\xB9", 238).characters, U"\u0105");
    EXPECT_EQ(pages.Decode("\xE1", 161).characters, U"\u03B1");
    EXPECT_EQ(pages.Decode("\xFE", 162).characters, U"\u015F");
    EXPECT_EQ(pages.Decode("\xE0", 177).characters, U"\u05D0");
    EXPECT_EQ(pages.Decode("\xC7", 178).characters, U"\u0627");
    EXPECT_EQ(pages.Decode("\xE0", 186).characters, U"\u0105");
    EXPECT_EQ(pages.Decode("\xF2", 163).characters.size(), 1U);
    EXPECT_EQ(pages.Decode("\xA1", 222).characters, U"\u0E01");
    EXPECT_EQ(pages.Decode("\x82", 255).characters, U"\u00E9");
    EXPECT_EQ(pages.Decode("a\x82\xA0z", 128).characters, U"a\u3042z");
    EXPECT_EQ(pages.Decode("\xB0\xA1", 134).characters, U"\u554A");
    EXPECT_EQ(pages.Decode("\xA4\x40", 136).characters, U"\u4E00");
    EXPECT_EQ(pages.Decode("\xB0\xA1", 129).characters, U"\uAC00");
    EXPECT_EQ(pages.Decode("\xF0", metafile::SymbolCharset).characters, U"\uF0F0");
    EXPECT_EQ(pages.Decode("\xE4", 77).characters, U"\u2030");
}

TEST(MetafileCodePages, TellWhereEachCharacterBegins) {
    metafile::CodePages pages;
    EXPECT_EQ(pages.Decode("a\x82\xA0z", 128).starts, (std::vector<std::size_t>{0, 1, 3}));
    EXPECT_EQ(metafile::DecodeUtf16(u"a\U0001F600z").starts, (std::vector<std::size_t>{0, 1, 3}));
}

TEST(MetafileCodePages, WhatIsNoCharacterIsReplaced) {
    metafile::CodePages pages;
    EXPECT_EQ(pages.Decode("\x82", 128).characters, U"\uFFFD") << "half of one";
    EXPECT_EQ(pages.Decode("\x81", 0).characters.size(), 1U);
    EXPECT_EQ(metafile::DecodeUtf16(u"a\xD83D").characters, U"a\uFFFD");
    EXPECT_EQ(metafile::DecodeUtf16(u"\xDE00z").characters, U"\uFFFDz");
    EXPECT_TRUE(pages.Decode("", 128).characters.empty());
}

}  // namespace
}  // namespace tavrix::test
