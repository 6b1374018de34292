#include <gtest/gtest.h>

#include "codecs/EmfFile.h"
#include "codecs/MetafilePicture.h"
#include "codecs/WmfFile.h"

namespace tavrix::test {
namespace {

using Box = std::vector<int>;

EmfFile Emf(int width = 20, int height = 20) {
    return EmfFile({.width = width, .height = height});
}

Box InkOf(const EmfFile& file) {
    return MetafilePicture(file.Make()).Ink();
}
Box InkOf(const WmfFile& file) {
    return MetafilePicture(file.Make()).Ink();
}

TEST(MetafileMapping, ThePlaceableBoundsFillThePicture) {
    const WmfFile file =
        WmfFile({{.left = -10, .top = 100, .right = 190, .bottom = 300, .unitsPerInch = 960}});
    EXPECT_EQ(InkOf(WmfFile(file).Fill(-10, 100, 90, 200, 0)), (Box{0, 0, 10, 10}));
    EXPECT_EQ(InkOf(WmfFile(file).Fill(90, 200, 190, 300, 0)), (Box{10, 10, 20, 20}));
}

TEST(MetafileMapping, TheWindowOfTheRecordsTakesTheirPlace) {
    const WmfFile file = WmfFile({{.right = 20, .bottom = 20}}).Window(100, 200, 40, 40);
    EXPECT_EQ(InkOf(WmfFile(file).Fill(100, 200, 110, 220, 0)), (Box{0, 0, 5, 10}));
    EXPECT_EQ(InkOf(WmfFile(file).Record(0x020F, {-200, -100}).Fill(0, 0, 10, 20, 0)), (Box{0, 0, 5, 10}));
    EXPECT_EQ(InkOf(WmfFile(file).Record(0x0410, {1, 2, 1, 2}).Fill(100, 200, 180, 280, 0)),
              (Box{0, 0, 20, 20}))
        << "the window twice as large";
    EXPECT_EQ(InkOf(WmfFile({{.right = 20, .bottom = 20}}).Window(0, 20, 20, -20).Fill(0, 0, 20, 5, 0)),
              (Box{0, 15, 20, 20}))
        << "upside down";
}

TEST(MetafileMapping, TextModeOfAPlainMetafileIsItsHeaders) {
    const WmfFile file = WmfFile({{.right = 400, .bottom = 400, .unitsPerInch = 1920}}).Record(0x0103, {1});
    EXPECT_EQ(InkOf(WmfFile(file).Fill(0, 0, 200, 200, 0)), (Box{0, 0, 10, 10}));
}

TEST(MetafileMapping, ViewportsOfAnEnhancedMetafile) {
    const EmfFile file = Emf().Record(17, {8}).Record(9, {100, 100}).Record(11, {20, 20});
    EXPECT_EQ(InkOf(EmfFile(file).Fill(25, 50, 50, 75, 0)), (Box{5, 10, 10, 15}));
    EXPECT_EQ(InkOf(EmfFile(file).Record(12, {3, 4}).Fill(0, 0, 25, 25, 0)), (Box{3, 4, 8, 9}));
    EXPECT_EQ(InkOf(EmfFile(file).Record(10, {25, 50}).Fill(25, 50, 50, 75, 0)), (Box{0, 0, 5, 5}));
    EXPECT_EQ(InkOf(EmfFile(file).Record(31, {1, 2, 1, 1}).Fill(0, 0, 100, 100, 0)), (Box{0, 0, 10, 20}));
    EXPECT_EQ(InkOf(EmfFile(file).Record(32, {2, 1, 2, 1}).Fill(0, 0, 100, 100, 0)), (Box{0, 0, 10, 10}));
    EXPECT_EQ(InkOf(EmfFile(file).Record(9, {0, 7}).Record(31, {1, 0, 0, 1}).Fill(0, 0, 100, 100, 0)),
              (Box{0, 0, 20, 20}))
        << "extents and factors of 0 change nothing";
}

TEST(MetafileMapping, IsotropicUnitsAreAsLongInBothDirections) {
    const EmfFile file = Emf().Record(17, {7}).Record(9, {100, 100}).Record(11, {20, 10});
    EXPECT_EQ(InkOf(EmfFile(file).Fill(0, 0, 100, 100, 0)), (Box{0, 0, 10, 10}));
}

TEST(MetafileMapping, MetricModesCountUpwards) {
    // 96 pixels an inch.
    const auto box = [](int mode, int units) {
        return InkOf(Emf(200, 200).Record(17, {mode}).Record(12, {0, 200}).Fill(0, 0, units, units, 0));
    };
    EXPECT_EQ(box(2, 254), (Box{0, 104, 96, 200}));
    EXPECT_EQ(box(3, 2540), (Box{0, 104, 96, 200}));
    EXPECT_EQ(box(4, 100), (Box{0, 104, 96, 200}));
    EXPECT_EQ(box(5, 1000), (Box{0, 104, 96, 200}));
    EXPECT_EQ(box(6, 1440), (Box{0, 104, 96, 200}));
}

TEST(MetafileMapping, AnUnknownModeChangesNothing) {
    EXPECT_EQ(InkOf(Emf().Record(17, {99}).Fill(1, 2, 3, 4, 0)), (Box{1, 2, 3, 4}));
}

TEST(MetafileMapping, TheWorldIsTransformedFirst) {
    const auto matrix = [](float xx, float xy, float yx, float yy, float dx, float dy) {
        Bytes body;
        for (const float value : {xx, xy, yx, yy, dx, dy})
            body.U32(EmfFile::Float(value));
        return body;
    };
    const EmfFile shifted = Emf().Record(35, matrix(1, 0, 0, 1, 5, 6));
    EXPECT_EQ(InkOf(EmfFile(shifted).Fill(0, 0, 2, 2, 0)), (Box{5, 6, 7, 8}));
    const EmfFile turned = Emf().Record(35, matrix(0, 1, -1, 0, 10, 0));
    EXPECT_EQ(InkOf(EmfFile(turned).Fill(0, 0, 4, 2, 0)), (Box{8, 0, 10, 4}));
    EXPECT_EQ(InkOf(EmfFile(shifted).Record(36, matrix(2, 0, 0, 2, 0, 0).U32(2)).Fill(0, 0, 2, 2, 0)),
              (Box{5, 6, 9, 10}))
        << "before the former";
    EXPECT_EQ(InkOf(EmfFile(shifted).Record(36, matrix(2, 0, 0, 2, 0, 0).U32(3)).Fill(0, 0, 2, 2, 0)),
              (Box{10, 12, 14, 16}))
        << "after the former";
    EXPECT_EQ(InkOf(EmfFile(shifted).Record(36, matrix(2, 0, 0, 2, 0, 0).U32(1)).Fill(0, 0, 2, 2, 0)),
              (Box{0, 0, 2, 2}))
        << "none at all";
    EXPECT_EQ(InkOf(EmfFile(shifted).Record(36, matrix(2, 0, 0, 2, 0, 0).U32(4)).Fill(0, 0, 2, 2, 0)),
              (Box{0, 0, 4, 4}))
        << "in place of the former";
    const float nan = std::bit_cast<float>(0x7FC00000U);
    const MetafilePicture senseless(
        Emf().Record(35, matrix(nan, nan, nan, nan, nan, nan)).Fill(0, 0, 9, 9, 0).Make());
    EXPECT_EQ(senseless.Status().outcome, Outcome::Complete);
}

TEST(MetafileState, IsSavedAndRestored) {
    const EmfFile file = Emf()
                             .Record(17, {8})
                             .Record(9, {10, 10})
                             .Record(11, {10, 10})
                             .Brush(1, 0, RedValue)
                             .Stock(8)
                             .Record(33)
                             .Record(11, {20, 20})
                             .Select(1)
                             .Brush(2, 0, BlueValue)
                             .Record(33)
                             .Brush(3, 0, GreenValue);
    const auto letter = [](const EmfFile& played) {
        const MetafilePicture picture(EmfFile(played).Polygon({0, 0, 1, 0, 1, 1, 0, 1}).Make());
        return std::pair(picture.Rows()[0][0], picture.Ink()[2]);
    };
    EXPECT_EQ(letter(file), std::pair('G', 2));
    EXPECT_EQ(letter(EmfFile(file).Record(34, {-1})), std::pair('B', 2));
    EXPECT_EQ(letter(EmfFile(file).Record(34, {-2})), std::pair('R', 1));
    EXPECT_EQ(letter(EmfFile(file).Record(34, {1})), std::pair('R', 1));
    EXPECT_EQ(letter(EmfFile(file).Record(34, {2})), std::pair('B', 2));
    EXPECT_EQ(letter(EmfFile(file).Record(34, {2}).Record(34, {-1})), std::pair('R', 1)) << "one is left";
    for (const int none : {0, 3, -3, 0x7FFFFFFF, -0x7FFFFFFF - 1})
        EXPECT_EQ(letter(EmfFile(file).Record(34, {none})), std::pair('G', 2)) << none;
}

TEST(MetafileState, ALayoutIsPassedOver) {
    const Box left{1, 1, 3, 3};
    EXPECT_EQ(InkOf(Emf().Record(115, {1}).Fill(1, 1, 3, 3, 0)), left);
    EXPECT_EQ(InkOf(Emf().Record(115, {0}).Fill(1, 1, 3, 3, 0)), left);
    EXPECT_EQ(InkOf(WmfFile().Record(0x0149, {1, 0}).Fill(1, 1, 3, 3, 0)), left);
}

TEST(MetafileState, PlainOnesSaveToo) {
    const WmfFile file = WmfFile({{.right = 4, .bottom = 4}})
                             .Pen(5, 0, 0)
                             .Select(0)
                             .Brush(0, RedValue)
                             .Brush(0, BlueValue)
                             .Select(1)
                             .Record(0x001E, {})
                             .Select(2);
    EXPECT_EQ(MetafilePicture(WmfFile(file).Rectangle(0, 0, 3, 3).Make()).At(0, 0), Blue);
    EXPECT_EQ(MetafilePicture(WmfFile(file).Record(0x0127, {-1}).Rectangle(0, 0, 3, 3).Make()).At(0, 0), Red);
    EXPECT_EQ(MetafilePicture(WmfFile(file).Record(0x0127, {1}).Rectangle(0, 0, 3, 3).Make()).At(0, 0), Red);
}

TEST(MetafileObjects, AFreedOneStaysSelected) {
    EXPECT_EQ(
        MetafilePicture(Emf().Stock(8).Brush(1, 0, RedValue).Record(40, {1}).Rectangle(0, 0, 3, 3).Make())
            .At(0, 0),
        Red);
}

TEST(MetafileObjects, PlacesWithoutOneSelectNothing) {
    EXPECT_EQ(
        MetafilePicture(Emf().Stock(8).Brush(1, 0, RedValue).Select(7).Rectangle(0, 0, 3, 3).Make()).At(0, 0),
        Red);
    EXPECT_EQ(
        MetafilePicture(Emf().Stock(8).Brush(1, 0, RedValue).Stock(99).Rectangle(0, 0, 3, 3).Make()).At(0, 0),
        Red);
    EXPECT_EQ(MetafilePicture(WmfFile().Select(3).Select(-1).Rectangle(0, 0, 3, 3).Make()).Ink(),
              (Box{0, 0, 3, 3}));
}

TEST(MetafileObjects, StockOnes) {
    const auto colour = [](unsigned brush) {
        return MetafilePicture(Emf().Stock(8).Stock(brush).Rectangle(0, 0, 3, 3).Make()).At(0, 0);
    };
    EXPECT_EQ(colour(0), WhitePixel);
    EXPECT_EQ(colour(1), 0xFFC0C0C0U);
    EXPECT_EQ(colour(2), 0xFF808080U);
    EXPECT_EQ(colour(3), 0xFF404040U);
    EXPECT_EQ(colour(4), BlackPixel);
    EXPECT_EQ(colour(18), WhitePixel) << "the device's own, as long as no colour is set";
    EXPECT_EQ(MetafilePicture(Emf().Stock(6).Stock(5).Rectangle(0, 0, 3, 3).Make()).Count('.'), 400);
    EXPECT_EQ(MetafilePicture(Emf().Stock(7).Stock(5).Rectangle(0, 0, 3, 3).Make()).Count('#'), 12);
}

TEST(MetafileObjects, ColoursOfThePalette) {
    const Bytes palette = Bytes().U32(1).U16(0x300).U16(2).U32(RedValue).U32(GreenValue);
    const EmfFile file = Emf().Record(49, palette).Record(48, {1}).Stock(8);
    const auto indexed = [](EmfFile played, std::uint32_t colour) {
        return MetafilePicture(played.Brush(2, 0, colour).Rectangle(0, 0, 3, 3).Make()).At(0, 0);
    };
    EXPECT_EQ(indexed(file, 0x01000001U), Green);
    EXPECT_EQ(indexed(file, 0x01000009U), BlackPixel);
    EXPECT_EQ(indexed(file, 0x02000000U | BlueValue), Blue);
    const Bytes entries = Bytes().U32(1).U32(1).U32(2).U32(BlueValue).U32(RedValue);
    EXPECT_EQ(indexed(EmfFile(file).Record(50, entries), 0x01000001U), Blue);
    EXPECT_EQ(indexed(EmfFile(file).Record(51, {1, 1}), 0x01000001U), BlackPixel);
    EXPECT_EQ(indexed(EmfFile(file).Record(51, {1, 0x10001}), 0x01000001U), Green) << "no such size";
    EXPECT_EQ(indexed(Emf().Stock(8), 0x0100000DU), Red) << "the stock palette";

    const Bytes plain = Bytes().U16(0x300).U16(2).U32(RedValue).U32(GreenValue);
    const WmfFile wmf = WmfFile().Record(0x00F7, plain).Record(0x0234, {0}).Pen(5, 0, 0).Select(1);
    EXPECT_EQ(
        MetafilePicture(WmfFile(wmf).Brush(0, 0x01000001U).Select(2).Rectangle(0, 0, 3, 3).Make()).At(0, 0),
        Green);
    EXPECT_EQ(MetafilePicture(WmfFile(wmf)
                                  .Record(0x0037, Bytes().U16(1).U16(1).U32(BlueValue))
                                  .Brush(0, 0x01000001U)
                                  .Select(2)
                                  .Rectangle(0, 0, 3, 3)
                                  .Make())
                  .At(0, 0),
              Blue);
}

TEST(MetafileObjects, HatchesLetThePaperThroughOrNot) {
    const auto hatched = [](int background, int hatch) {
        return MetafilePicture(Emf()
                                   .Record(18, {background})
                                   .Record(25, Bytes().U32(GreenValue))
                                   .Stock(8)
                                   .Brush(1, 2, RedValue, hatch)
                                   .Polygon({0, 0, 16, 0, 16, 16, 0, 16})
                                   .Make());
    };
    EXPECT_EQ(hatched(1, 0).Count('R'), 32);
    EXPECT_EQ(hatched(1, 0).Count('G'), 0);
    EXPECT_EQ(hatched(2, 0).Count('G'), 224);
    EXPECT_EQ(hatched(1, 4).Count('R'), 60);
    EXPECT_EQ(hatched(1, 8).Count('R'), 256) << "beyond the hatches: solid";
    const MetafilePicture horizontal = hatched(1, 0);
    const MetafilePicture vertical = hatched(1, 1);
    int both = 0;
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            both += static_cast<int>(horizontal.At(x, y) == vertical.At(y, x));
    }
    EXPECT_EQ(both, 256);
}

}  // namespace
}  // namespace tavrix::test
