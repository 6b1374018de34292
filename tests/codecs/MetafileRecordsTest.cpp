#include <gtest/gtest.h>

#include <functional>

#include "codecs/Decoding.h"
#include "codecs/EmfFile.h"
#include "codecs/WmfFile.h"
#include "imaging/codecs/LittleEndian.h"
#include "imaging/metafile/Recording.h"

namespace tavrix::test {
namespace {

using namespace metafile;

class NoSink final : public PictureSink {
  public:
    Surface* Begin(const PictureInfo&) override { return nullptr; }
    void RowsReady(int) override {}
    [[nodiscard]] bool Cancelled() const override { return false; }
};

Recording Read(const std::vector<std::byte>& bytes) {
    MemorySource source(bytes);
    return tavrix::U32(bytes, 0) == 1 ? ReadEmf(source, NoSink()) : ReadWmf(source, NoSink());
}

template <class T>
const T& Only(const Recording& recording) {
    EXPECT_EQ(recording.ending.outcome, Outcome::Complete) << recording.ending.reason;
    EXPECT_EQ(recording.records.size(), 1U);
    return std::get<T>(recording.records.at(0));
}

std::pair<std::int64_t, std::int64_t> SizeOf(const std::vector<std::byte>& bytes) {
    const Recording recording = Read(bytes);
    return {recording.placement.width, recording.placement.height};
}

using Size = std::pair<std::int64_t, std::int64_t>;

TEST(MetafileSize, OfAPlaceableMetafileFollowsItsBoundsAndInch) {
    EXPECT_EQ(SizeOf(WmfFile({{.right = 1369, .bottom = 1369, .unitsPerInch = 1200}}).Make()),
              Size(110, 110));
    EXPECT_EQ(
        SizeOf(WmfFile({{.left = -100, .top = 50, .right = 100, .bottom = 150, .unitsPerInch = 96}}).Make()),
        Size(200, 100));
    EXPECT_EQ(
        SizeOf(WmfFile({{.left = 200, .top = 100, .right = 0, .bottom = 0, .unitsPerInch = 48}}).Make()),
        Size(400, 200));
    EXPECT_EQ(SizeOf(WmfFile({{.right = 1440, .bottom = 720, .unitsPerInch = 0}}).Make()), Size(96, 48));
    EXPECT_EQ(SizeOf(WmfFile({{.right = 3, .bottom = 3, .unitsPerInch = 1000}}).Make()), Size(1, 1));
}

TEST(MetafileSize, OfAPlainMetafileIsItsFirstWindow) {
    EXPECT_EQ(SizeOf(WmfFile(std::nullopt).Window(0, 0, 324, 252).Window(0, 0, 9, 9).Make()), Size(324, 252));
    EXPECT_EQ(SizeOf(WmfFile(std::nullopt).Window(5, 5, 0, 3).Window(0, 0, 9, -8).Make()), Size(9, 8));
    EXPECT_EQ(SizeOf(WmfFile(std::nullopt).Window(0, 0, 20480, 10240).Make()), Size(2048, 1024));
    EXPECT_EQ(SizeOf(WmfFile({{.right = 0, .bottom = 0}}).Window(0, 0, 30, 20).Make()), Size(30, 20));
}

TEST(MetafileSize, WithoutAWindowIsTheReachOfTheShapes) {
    EXPECT_EQ(SizeOf(WmfFile(std::nullopt).Rectangle(2, 3, 40, 20).Polygon({1, 1, 50, 5, 5, 9}).Make()),
              Size(51, 21));
    EXPECT_EQ(SizeOf(WmfFile(std::nullopt).Make()), Size(1, 1));
}

TEST(MetafileSize, WithoutAWindowIsTheReachOfTheBitmaps) {
    const Bytes dib =
        Bytes().U32(40).I32(2).I32(2).U16(1).U16(24).Zeros(24).U32(0xFF).U32(0xFF00).U32(0xFF0000).U32(0);
    Bytes stretch = Bytes().U32(0x00CC0020U).U16(0);
    for (const unsigned word : {2U, 2U, 0U, 0U, 30U, 40U, 5U, 6U})
        stretch.U16(word);
    EXPECT_EQ(SizeOf(WmfFile(std::nullopt).Record(0x0F43, stretch.Append(dib.Get())).Make()), Size(46, 35));
    Bytes blit = Bytes().U32(0x00CC0020U);
    for (const unsigned word : {0U, 0U, 2U, 2U, 7U, 9U})
        blit.U16(word);
    EXPECT_EQ(SizeOf(WmfFile(std::nullopt).Record(0x0940, blit.Append(dib.Get())).Make()), Size(11, 9));
    EXPECT_EQ(SizeOf(WmfFile(std::nullopt).Record(0x061D, {0x21, 0xF0, 20, 30, 2, 3}).Make()), Size(33, 22));
}

TEST(MetafileSize, OfAnEnhancedMetafileIsItsFrame) {
    EXPECT_EQ(SizeOf(EmfFile({.width = 300, .height = 200, .framed = true}).Make()), Size(300, 200));
    std::vector<std::byte> file = EmfFile({.width = 30, .height = 20}).Make();
    EXPECT_EQ(SizeOf(file), Size(30, 20)) << "of the bounds, where the frame is empty";
    for (std::size_t i = 72; i < 88; ++i)
        file[i] = std::byte{0};
    EXPECT_EQ(SizeOf(file), Size(30, 20)) << "of a device without a size";
    file[16] = std::byte{0xFF};
    file[19] = std::byte{0xFF};
    EXPECT_EQ(Read(file).trouble, "no area");
}

TEST(MetafileSize, MayBeAbsurd) {
    std::vector<std::byte> file = EmfFile({.width = 30, .height = 20}).Make();
    const Bytes most = Bytes().I32(std::numeric_limits<std::int32_t>::max());
    const Bytes one = Bytes().I32(1);
    const auto put = [&](std::size_t at, const Bytes& value) {
        std::copy(value.Get().begin(), value.Get().end(), file.begin() + static_cast<std::ptrdiff_t>(at));
    };
    put(16, most);
    put(72, one);
    put(80, most);
    EXPECT_GT(Read(file).placement.width, std::numeric_limits<int>::max());
    EXPECT_EQ(Decode(file).error, ErrorNumber::OutOfMemory);
}

TEST(MetafileRecords, ObjectsOfAPlainMetafileTakeTheFirstFreePlace) {
    const Recording recording = Read(WmfFile()
                                         .Pen(0, 1, 0)
                                         .Brush(0, 0)
                                         .Pen(0, 2, 0)
                                         .Delete(1)
                                         .Delete(0)
                                         .Delete(7)
                                         .Pen(0, 3, 0)
                                         .Pen(0, 4, 0)
                                         .Pen(0, 5, 0)
                                         .Make());
    std::vector<Handle> places;
    for (const metafile::Record& record : recording.records) {
        if (const auto* create = std::get_if<CreateObject>(&record)) places.push_back(create->handle);
    }
    EXPECT_EQ(places, (std::vector<Handle>{0, 1, 2, 0, 1, 3}));
}

TEST(MetafileRecords, AnObjectThatIsNotKnownTakesAPlaceToo) {
    const Recording recording = Read(WmfFile().Record(0x00F8, {0}).Pen(0, 1, 0).Make());
    ASSERT_EQ(recording.records.size(), 2U);
    EXPECT_EQ(std::get<CreateObject>(recording.records[0]).object, nullptr);
    EXPECT_EQ(std::get<CreateObject>(recording.records[1]).handle, 1U);
}

TEST(MetafileRecords, UnknownOnesArePassedOver) {
    EXPECT_EQ(Read(WmfFile().Record(0x0626, {1, 2, 3}).Record(0x7777, {}).Rectangle(0, 0, 1, 1).Make())
                  .records.size(),
              1U);
    EXPECT_EQ(Read(EmfFile().Record(70, {4, 0}).Record(4711).Rectangle(0, 0, 1, 1).Make()).records.size(),
              1U);
}

TEST(MetafileRecords, PointsOfBothWidths) {
    EXPECT_EQ(Only<PolyShape>(Read(WmfFile().Polygon({-1, 2, 3, -4}).Make())).points,
              (std::vector<Point>{{-1, 2}, {3, -4}}));
    EXPECT_EQ(Only<PolyShape>(Read(EmfFile().Poly(4, {-1, 2, 300'000, -4}).Make())).points,
              (std::vector<Point>{{-1, 2}, {300'000, -4}}));
    const Bytes words = EmfFile::Bounds().U32(2).U16(0xFFFF).U16(2).U16(3).U16(0xFFFC);
    EXPECT_EQ(Only<PolyShape>(Read(EmfFile().Record(87, words).Make())).points,
              (std::vector<Point>{{-1, 2}, {3, -4}}));
}

TEST(MetafileRecords, TextOfEveryRecord) {
    const Recording plain =
        Read(WmfFile().Record(0x0521, Bytes().U16(3).Text("abc").U8({0}).U16(20).U16(10)).Make());
    const auto& text = *Only<std::unique_ptr<const Text>>(plain);
    EXPECT_EQ(text.bytes, "abc");
    EXPECT_EQ(text.at, (Point{10, 20}));

    const Recording extended = Read(
        WmfFile()
            .Record(
                0x0A32,
                Bytes().U16(20).U16(10).U16(2).U16(4).U16(1).U16(2).U16(3).U16(4).Text("xy").U16(7).U16(8))
            .Make());
    const auto& wide = *Only<std::unique_ptr<const Text>>(extended);
    EXPECT_EQ(wide.bytes, "xy");
    EXPECT_EQ(wide.box, (Box{1, 2, 3, 4}));
    EXPECT_EQ(wide.advances, (std::vector<std::int32_t>{7, 8}));

    Bytes body = EmfFile::Bounds().U32(1).U32(0).U32(0).I32(10).I32(20).U32(2).U32(76).U32(2);
    body.I32(1).I32(2).I32(3).I32(4).U32(80).U16('x').U16(0x20AC).I32(7).I32(8);
    const Recording enhanced = Read(EmfFile().Record(84, body).Make());
    const auto& unicode = *Only<std::unique_ptr<const Text>>(enhanced);
    EXPECT_EQ(unicode.wide, u"x\u20AC");
    EXPECT_EQ(unicode.advances, (std::vector<std::int32_t>{7, 8}));
    EXPECT_EQ(unicode.box, (Box{1, 2, 3, 4}));

    const Recording small =
        Read(EmfFile()
                 .Record(108, Bytes().I32(5).I32(6).U32(2).U32(0x300).U32(1).U32(0).U32(0).Text("ab"))
                 .Make());
    EXPECT_EQ(Only<std::unique_ptr<const Text>>(small)->wide, u"ab");
    EXPECT_EQ(Only<std::unique_ptr<const Text>>(small)->at, (Point{5, 6}));
}

TEST(MetafileRecords, BitmapsStayInTheFile) {
    const EmfFile empty;
    Bytes body = EmfFile::Bounds();
    body.I32(1)
        .I32(2)
        .I32(0)
        .I32(0)
        .I32(3)
        .I32(4)
        .U32(80)
        .U32(40)
        .U32(120)
        .U32(48)
        .U32(1)
        .U32(0xCC0020)
        .I32(5)
        .I32(6);
    body.Zeros(88);
    const Recording recording = Read(EmfFile().Record(81, body).Make());
    const auto& draw = *Only<std::unique_ptr<const DrawDib>>(recording);
    EXPECT_EQ(draw.bitmap.kind, BitmapPlace::Kind::Dib);
    EXPECT_EQ(draw.bitmap.header, empty.Size() + 80);
    EXPECT_EQ(draw.bitmap.bits, empty.Size() + 120);
    EXPECT_EQ(draw.bitmap.bitsLength, 48U);
    EXPECT_TRUE(draw.bitmap.paletteIndexes);
    EXPECT_EQ(draw.toSize, (Point{5, 6}));
}

TEST(MetafileRecords, ABlitWithoutABitmapIsTheShortForm) {
    const Recording recording = Read(WmfFile().Record(0x0940, {0x0042, 0, 0, 0, 0, 4, 5, 6, 7}).Make());
    const auto& blit = *Only<std::unique_ptr<const Blit>>(recording);
    EXPECT_EQ(blit.bitmap.kind, BitmapPlace::Kind::None);
    EXPECT_EQ(blit.operation, 0x42U);
    EXPECT_EQ(blit.toSize, (Point{5, 4}));
    EXPECT_EQ(blit.to, (Point{7, 6}));
}

/// Each broken in one field; the shape before it stays.
TEST(MetafileRecords, ABrokenOneIsLeftOutOrEndsTheList) {
    const auto counted = [](unsigned type, std::uint32_t count) {
        return EmfFile().Rectangle(0, 0, 9, 9).Record(type, EmfFile::Bounds().U32(count).Zeros(16));
    };
    Bytes polypoly = EmfFile::Bounds().U32(2).U32(2).U32(1).U32(0xFFFFFFFFU).Zeros(16);
    const std::vector<EmfFile> broken{
        counted(3, 3),
        counted(3, 0xFFFFFFFFU),
        counted(86, 5),
        counted(86, 0x80000001U),
        counted(56, 2),
        counted(8, 0xFFFFFFFFU),
        EmfFile().Rectangle(0, 0, 9, 9).Record(8, polypoly),
        EmfFile().Rectangle(0, 0, 9, 9).Record(37, {0x10000}),
        EmfFile().Rectangle(0, 0, 9, 9).Record(39, {0, 0, 0, 0}),
        EmfFile().Rectangle(0, 0, 9, 9).Record(39, {0x7FFFFFFF, 0, 0, 0}),
        EmfFile().Rectangle(0, 0, 9, 9).Record(38, {1, 0, 0}),
        EmfFile().Rectangle(0, 0, 9, 9).Record(67, {6}),
        EmfFile().Rectangle(0, 0, 9, 9).Record(75, {48, 5, 32, 1, 2, 0, 0, 0, 0, 0, 1, 1, 1, 1}),
        EmfFile().Rectangle(0, 0, 9, 9).Record(75, {0x7FFFFFFF, 5, 32, 1, 0x7FFFFFFF, 0, 0, 0, 0, 0}),
        EmfFile()
            .Rectangle(0, 0, 9, 9)
            .Record(118, EmfFile::Bounds().U32(1).U32(1).U32(0).Zeros(16).U32(0).U32(1)),
        EmfFile()
            .Rectangle(0, 0, 9, 9)
            .Record(118, EmfFile::Bounds().U32(0x10000001U).U32(1).U32(0).Zeros(64)),
        EmfFile().Rectangle(0, 0, 9, 9).Record(118, EmfFile::Bounds().U32(0).U32(0).U32(3)),
        EmfFile().Rectangle(0, 0, 9, 9).Record(36, {0, 0, 0, 0, 0, 0, 5}),
        EmfFile()
            .Rectangle(0, 0, 9, 9)
            .Record(84, EmfFile::Bounds().Zeros(20).U32(0x80000001U).U32(76).Zeros(24)),
        EmfFile()
            .Rectangle(0, 0, 9, 9)
            .Record(84, EmfFile::Bounds().Zeros(20).U32(2).U32(0xFFFFFFFFU).Zeros(24)),
        EmfFile()
            .Rectangle(0, 0, 9, 9)
            .Record(81, EmfFile::Bounds().Zeros(24).U32(80).U32(0xFFFFFFFFU).U32(80).U32(0).Zeros(16)),
        EmfFile()
            .Rectangle(0, 0, 9, 9)
            .Record(81, EmfFile::Bounds().Zeros(24).U32(8).U32(40).U32(80).U32(0x7FFFFFFFU).Zeros(16)),
        EmfFile().Rectangle(0, 0, 9, 9).Sized(43, 4, Bytes().Zeros(16)),
        EmfFile().Rectangle(0, 0, 9, 9).Sized(43, 0, Bytes().Zeros(16)),
        EmfFile().Rectangle(0, 0, 9, 9).Sized(43, 25, Bytes().Zeros(16)),
    };
    for (std::size_t i = 0; i < broken.size(); ++i) {
        SCOPED_TRACE(i);
        const Recording recording = Read(broken[i].Make());
        EXPECT_EQ(recording.ending.outcome, Outcome::Corrupt);
        EXPECT_EQ(recording.ending.offset, 88U + 24U);
        EXPECT_EQ(recording.records.size(), 1U);
    }
    const std::vector<WmfFile> words{
        WmfFile().Rectangle(0, 0, 9, 9).Record(0x0324, {3, 0, 0, 1, 1}),
        WmfFile().Rectangle(0, 0, 9, 9).Record(0x0324, {-1, 0, 0, 1, 1}),
        WmfFile().Rectangle(0, 0, 9, 9).Record(0x0538, {2, 1, -1, 0, 0}),
        WmfFile().Rectangle(0, 0, 9, 9).Record(0x0521, {-1, 0, 0}),
        WmfFile().Rectangle(0, 0, 9, 9).Record(0x0A32, {0, 0, 3, 0, 1}),
        WmfFile().Rectangle(0, 0, 9, 9).Record(0x041B, {0, 0, 0}),
        WmfFile().Rectangle(0, 0, 9, 9).Record(0x00F7, {0x300, 2, 0, 0}),
        WmfFile().Rectangle(0, 0, 9, 9).Record(0x06FF, {0, 6, 0, 0, 0, 9, 0, 0, 0, 0, 0}),
        WmfFile().Rectangle(0, 0, 9, 9).Record(0x0F43, {0x20, 0xCC, 0, 1, 1, 0, 0, 1, 1, 0, 0, 40, 0}),
        WmfFile().Rectangle(0, 0, 9, 9).Sized(2, 0x041B),
        WmfFile().Rectangle(0, 0, 9, 9).Sized(0, 0x041B),
    };
    for (std::size_t i = 0; i < words.size(); ++i) {
        SCOPED_TRACE(i);
        const Recording recording = Read(words[i].Make());
        EXPECT_EQ(recording.ending.outcome, Outcome::Corrupt);
        EXPECT_EQ(recording.ending.offset, 40U + 14U);
        EXPECT_EQ(recording.records.size(), 1U);
    }
}

TEST(MetafileRecords, ALengthBeyondTheFileIsACut) {
    for (const std::uint32_t length : {25U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        const Recording wmf = Read(WmfFile().Sized(length, 0x041B, Bytes().Zeros(8)).Make());
        EXPECT_EQ(wmf.ending.outcome, Outcome::Truncated);
        const Recording emf = Read(EmfFile().Sized(43, length & ~3U, Bytes().Zeros(8)).MakeOpen());
        EXPECT_EQ(emf.ending.outcome, Outcome::Truncated);
    }
}

TEST(MetafileRecords, ManyTinyOnesAreKeptToABound) {
    Bytes many;
    for (int i = 0; i < (2 << 20) + 5; ++i)
        many.U32(3).U16(0x001E);
    const Recording recording = Read(WmfFile().Sized(3, 0x001E, many).Make());
    EXPECT_EQ(recording.records.size(), std::size_t{2} << 20U);
    EXPECT_EQ(recording.ending.outcome, Outcome::Truncated);
    EXPECT_EQ(recording.ending.reason, "more records than are drawn");
}

TEST(MetafileHeaders, CutOrSenselessOnesAreRefused) {
    const std::vector<std::byte> wmf = WmfFile().Make();
    for (std::size_t length = 4; length < 40; ++length)
        EXPECT_FALSE(Read({wmf.begin(), wmf.begin() + std::ptrdiff_t(length)}).trouble.empty()) << length;
    const std::vector<std::byte> emf = EmfFile().Make();
    for (std::size_t length = 4; length < 88; ++length)
        EXPECT_EQ(Read({emf.begin(), emf.begin() + std::ptrdiff_t(length)}).trouble, "header cut off")
            << length;
    std::vector<std::byte> longer = emf;
    longer[6] = std::byte{1};
    EXPECT_EQ(Read(longer).trouble, "header cut off");
    std::vector<std::byte> shorter = emf;
    shorter[4] = std::byte{84};
    EXPECT_EQ(Read(shorter).trouble, "header too short");
}

}  // namespace
}  // namespace tavrix::test
