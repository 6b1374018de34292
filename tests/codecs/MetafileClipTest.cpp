#include <gtest/gtest.h>

#include "codecs/EmfFile.h"
#include "codecs/MetafilePicture.h"
#include "codecs/WmfFile.h"

namespace tavrix::test {
namespace {

EmfFile Emf() {
    return EmfFile({.width = 8, .height = 4});
}

/// What is left of black paper.
Art Clipped(EmfFile file) {
    return MetafilePicture(file.Fill(-5, -5, 50, 50, 0).Make()).Rows();
}
Art Clipped(WmfFile file) {
    return MetafilePicture(file.Fill(-5, -5, 50, 50, 0).Make()).Rows();
}

Bytes Boxes(std::initializer_list<int> sides) {
    Bytes region;
    region.U32(32).U32(1).U32(static_cast<std::uint32_t>(sides.size() / 4)).U32(0).Zeros(16);
    for (const int side : sides)
        region.I32(side);
    return region;
}

EmfFile SelectRegion(EmfFile file, unsigned mode, std::initializer_list<int> sides) {
    const Bytes region = Boxes(sides);
    return file.Record(75,
                       Bytes().U32(static_cast<std::uint32_t>(region.Size())).U32(mode).Append(region.Get()));
}

TEST(MetafileClip, ToAndAroundBoxes) {
    const Art inside{"........", ".####...", ".####...", "........"};
    EXPECT_EQ(Clipped(Emf().Record(30, {1, 1, 5, 3})), inside);
    EXPECT_EQ(Clipped(WmfFile({{.right = 8, .bottom = 4}}).Record(0x0416, {3, 5, 1, 1})), inside);
    const Art outside{"########", "#....###", "#....###", "########"};
    EXPECT_EQ(Clipped(Emf().Record(29, {1, 1, 5, 3})), outside);
    EXPECT_EQ(Clipped(WmfFile({{.right = 8, .bottom = 4}}).Record(0x0415, {3, 5, 1, 1})), outside);
    EXPECT_EQ(Clipped(Emf().Record(30, {1, 1, 5, 3}).Record(26, {2, -1})),
              (Art{"...####.", "...####.", "........", "........"}));
    EXPECT_EQ(
        Clipped(WmfFile({{.right = 8, .bottom = 4}}).Record(0x0416, {3, 5, 1, 1}).Record(0x0220, {-1, 2})),
        (Art{"...####.", "...####.", "........", "........"}));
}

TEST(MetafileClip, RegionsInAllModes) {
    const EmfFile first = SelectRegion(Emf(), 5, {0, 0, 4, 2});
    EXPECT_EQ(Clipped(first), (Art{"####....", "####....", "........", "........"}));
    EXPECT_EQ(Clipped(SelectRegion(first, 1, {2, 1, 8, 4})),
              (Art{"........", "..##....", "........", "........"}));
    EXPECT_EQ(Clipped(SelectRegion(first, 2, {2, 1, 8, 4})),
              (Art{"####....", "########", "..######", "..######"}));
    EXPECT_EQ(Clipped(SelectRegion(first, 3, {2, 1, 8, 4})),
              (Art{"####....", "##..####", "..######", "..######"}));
    EXPECT_EQ(Clipped(SelectRegion(first, 4, {2, 1, 8, 4})),
              (Art{"####....", "##......", "........", "........"}));
    EXPECT_EQ(Clipped(SelectRegion(first, 5, {7, 3, 8, 4, 0, 0, 1, 1})),
              (Art{"#.......", "........", "........", ".......#"}));
    EXPECT_EQ(Clipped(EmfFile(first).Record(75, {0, 5})),
              (Art{"########", "########", "########", "########"}));
    EXPECT_EQ(Clipped(SelectRegion(Emf(), 5, {})), (Art{"........", "........", "........", "........"}))
        << "a region without boxes";
}

TEST(MetafileClip, RegionObjectsOfAPlainMetafile) {
    Bytes region;
    region.U16(0).U16(6).U32(0).U16(0).U16(2).U16(4).U16(0).U16(0).U16(8).U16(4);
    region.U16(4).U16(0).U16(2).U16(0).U16(2).U16(4).U16(6).U16(4);
    region.U16(2).U16(2).U16(4).U16(1).U16(3).U16(2);
    const WmfFile file = WmfFile({{.right = 8, .bottom = 4}}).Record(0x06FF, region);
    const Art shape{"##..##..", "##..##..", ".##.....", ".##....."};
    EXPECT_EQ(Clipped(WmfFile(file).Record(0x012C, {0})), shape);
    EXPECT_EQ(Clipped(WmfFile(file).Select(0)), shape);
    EXPECT_EQ(Clipped(WmfFile(file).Record(0x012C, {0}).Record(0x012C, {9})), Art(4, "########"))
        << "no such region: no clip";
    const auto drawn = [&](unsigned function, std::initializer_list<int> words) {
        return MetafilePicture(
                   WmfFile(file).Brush(0, 0).Brush(0, RedValue).Select(2).Record(function, words).Make())
            .Rows();
    };
    EXPECT_EQ(drawn(0x012A, {0}), shape) << "inverted";
    EXPECT_EQ(drawn(0x0228, {0, 1}), shape) << "filled with the brush that is told";
    EXPECT_EQ(drawn(0x012B, {0}), (Art{"RR..RR..", "RR..RR..", ".RR.....", ".RR....."})) << "painted";
}

TEST(MetafileClip, RegionsAreFilledFramedInvertedAndPainted) {
    const EmfFile tools = EmfFile({.width = 8, .height = 6}).Brush(2, 0, 0).Brush(1, 0, RedValue);
    const Bytes region = Boxes({1, 1, 7, 5});
    const auto size = static_cast<std::uint32_t>(region.Size());
    const auto rows = [&](unsigned type, const Bytes& head) {
        return MetafilePicture(EmfFile(tools).Record(type, Bytes(head).Append(region.Get())).Make()).Rows();
    };
    EXPECT_EQ(rows(71, EmfFile::Bounds().U32(size).U32(2)),
              (Art{"........", ".######.", ".######.", ".######.", ".######.", "........"}));
    EXPECT_EQ(rows(72, EmfFile::Bounds().U32(size).U32(2).I32(2).I32(1)),
              (Art{"........", ".######.", ".##..##.", ".##..##.", ".######.", "........"}));
    EXPECT_EQ(rows(73, EmfFile::Bounds().U32(size)),
              (Art{"........", ".######.", ".######.", ".######.", ".######.", "........"}));
    EXPECT_EQ(rows(74, EmfFile::Bounds().U32(size)),
              (Art{"........", ".RRRRRR.", ".RRRRRR.", ".RRRRRR.", ".RRRRRR.", "........"}));
}

TEST(MetafileClip, IsSavedAndRestored) {
    EXPECT_EQ(Clipped(Emf().Record(30, {1, 1, 5, 3}).Record(33).Record(30, {2, 2, 3, 3}).Record(34, {-1})),
              (Art{"........", ".####...", ".####...", "........"}));
    EXPECT_EQ(Clipped(Emf().Record(33).Record(30, {2, 2, 3, 3}).Record(34, {-1})), Art(4, "########"));
}

TEST(MetafileClip, AMetaRegionClipsForGood) {
    EXPECT_EQ(Clipped(SelectRegion(SelectRegion(Emf(), 5, {0, 0, 4, 2}).Record(28), 5, {2, 1, 8, 4})),
              (Art{"........", "..##....", "........", "........"}));
    EXPECT_EQ(Clipped(SelectRegion(Emf(), 5, {0, 0, 4, 2}).Record(28).Record(75, {0, 5})),
              (Art{"####....", "####....", "........", "........"}));
}

EmfFile BoxPath(EmfFile file) {
    return file.Record(59)
        .Record(27, {1, 1})
        .Record(54, {5, 1})
        .Record(54, {5, 3})
        .Record(54, {1, 3})
        .Record(61)
        .Record(60);
}

TEST(MetafilePaths, AreFilledAndStroked) {
    const EmfFile tools = EmfFile({.width = 8, .height = 6}).Brush(1, 0, RedValue);
    EXPECT_EQ(MetafilePicture(BoxPath(EmfFile(tools).Stock(8)).Record(62, EmfFile::Bounds()).Make()).Rows(),
              (Art{"........", ".RRRR...", ".RRRR...", "........", "........", "........"}));
    EXPECT_EQ(MetafilePicture(BoxPath(tools).Record(64, EmfFile::Bounds()).Make()).Rows(),
              (Art{"........", ".#####..", ".#...#..", ".#####..", "........", "........"}));
    EXPECT_EQ(MetafilePicture(BoxPath(tools).Record(63, EmfFile::Bounds()).Make()).Rows(),
              (Art{"........", ".#####..", ".#RRR#..", ".#####..", "........", "........"}));
    EXPECT_EQ(
        MetafilePicture(BoxPath(tools).Record(63, EmfFile::Bounds()).Record(64, EmfFile::Bounds()).Make())
            .Count('#'),
        12)
        << "a path is used once";
}

TEST(MetafilePaths, TakeWhatIsDrawnInThem) {
    const EmfFile tools = EmfFile({.width = 8, .height = 6}).Brush(1, 0, RedValue);
    const EmfFile unused = EmfFile(tools).Record(59).Rectangle(1, 1, 5, 3).Record(60);
    EXPECT_EQ(MetafilePicture(unused.Make()).Count('.'), 48);
    EXPECT_EQ(MetafilePicture(EmfFile(unused).Record(63, EmfFile::Bounds()).Make()).Rows(),
              (Art{"........", ".#####..", ".#RRR#..", ".#####..", "........", "........"}));
    EXPECT_EQ(MetafilePicture(EmfFile(unused).Record(68).Record(63, EmfFile::Bounds()).Make()).Count('.'), 48)
        << "aborted";
}

TEST(MetafilePaths, ClipInAllModes) {
    const Art inside{"........", ".####...", ".####...", "........"};
    EXPECT_EQ(Clipped(BoxPath(Emf()).Record(67, {5})), inside);
    EXPECT_EQ(Clipped(BoxPath(Emf()).Record(67, {1})), inside);
    EXPECT_EQ(Clipped(BoxPath(Emf()).Record(67, {4})), (Art{"########", "#....###", "#....###", "########"}));
    EXPECT_EQ(Clipped(BoxPath(SelectRegion(Emf(), 5, {0, 0, 2, 2})).Record(67, {2})),
              (Art{"##......", "#####...", ".####...", "........"}));
    EXPECT_EQ(Clipped(BoxPath(SelectRegion(Emf(), 5, {0, 0, 2, 2})).Record(67, {3})),
              (Art{"##......", "#.###...", ".####...", "........"}));
}

TEST(MetafilePaths, AreWidenedAndFlattened) {
    const EmfFile line = EmfFile({.width = 8, .height = 6})
                             .Pen(1, 0, 2, RedValue)
                             .Record(59)
                             .Record(27, {-4, 3})
                             .Record(54, {14, 3})
                             .Record(60);
    EXPECT_EQ(MetafilePicture(EmfFile(line).Record(66).Stock(8).Stock(4).Record(62, EmfFile::Bounds()).Make())
                  .Count('#'),
              16);
    EXPECT_EQ(MetafilePicture(EmfFile(line).Record(65).Record(64, EmfFile::Bounds()).Make()).Count('R'), 16);
}

}  // namespace
}  // namespace tavrix::test
