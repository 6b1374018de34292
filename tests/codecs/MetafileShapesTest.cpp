#include <gtest/gtest.h>

#include "codecs/EmfFile.h"
#include "codecs/MetafilePicture.h"
#include "codecs/WmfFile.h"

namespace tavrix::test {
namespace {

constexpr unsigned NullPen = 5;

WmfFile Small(int width = 8, int height = 6) {
    return WmfFile({{.right = width, .bottom = height}});
}

EmfFile SmallEmf(int width = 8, int height = 6) {
    return EmfFile({.width = width, .height = height});
}

TEST(MetafileShapes, ThePaperIsWhiteAndOpaque) {
    const MetafilePicture wmf(Small().Make());
    EXPECT_EQ(wmf.Status().outcome, Outcome::Complete);
    EXPECT_EQ(wmf.Count('.'), 48);
    EXPECT_FALSE(wmf.Decoded().picture.transparent);
    EXPECT_EQ(wmf.Decoded().picture.format, "wmf");
    const MetafilePicture emf(SmallEmf().Make());
    EXPECT_EQ(emf.Count('.'), 48);
    EXPECT_EQ(emf.Decoded().picture.format, "emf");
}

TEST(MetafileShapes, APlainRectangleLeavesItsLastColumnAndRowAway) {
    EXPECT_EQ(MetafilePicture(Small().Brush(0, RedValue).Select(0).Rectangle(1, 1, 6, 5).Make()).Rows(),
              (Art{
                  "........",
                  ".#####..",
                  ".#RRR#..",
                  ".#RRR#..",
                  ".#####..",
                  "........",
              }));
}

TEST(MetafileShapes, AnEnhancedRectangleHasThem) {
    EXPECT_EQ(MetafilePicture(SmallEmf().Brush(1, 0, RedValue).Rectangle(1, 1, 5, 4).Make()).Rows(),
              (Art{
                  "........",
                  ".#####..",
                  ".#RRR#..",
                  ".#RRR#..",
                  ".#####..",
                  "........",
              }));
}

TEST(MetafileShapes, PolygonsOfBothFormats) {
    const Art box{"........", ".BBBB...", ".BBBB...", ".BBBB...", "........", "........"};
    EXPECT_EQ(MetafilePicture(Small()
                                  .Pen(NullPen, 0, 0)
                                  .Select(0)
                                  .Brush(0, BlueValue)
                                  .Select(1)
                                  .Polygon({1, 1, 5, 1, 5, 4, 1, 4})
                                  .Make())
                  .Rows(),
              box);
    EXPECT_EQ(MetafilePicture(SmallEmf().Fill(1, 1, 5, 4, BlueValue).Make()).Rows(), box);
    const Bytes words = EmfFile::Bounds().U32(4).U16(1).U16(1).U16(5).U16(1).U16(5).U16(4).U16(1).U16(4);
    EXPECT_EQ(MetafilePicture(SmallEmf().Stock(8).Brush(1, 0, BlueValue).Record(86, words).Make()).Rows(),
              box);
}

TEST(MetafileShapes, PolypolygonsFillByTheRule) {
    Bytes rings = EmfFile::Bounds().U32(2).U32(8).U32(4).U32(4);
    for (const int value : {0, 0, 8, 0, 8, 6, 0, 6, 2, 2, 6, 2, 6, 4, 2, 4})
        rings.I32(value);
    const EmfFile even = SmallEmf().Stock(8).Brush(1, 0, RedValue).Record(8, rings);
    EXPECT_EQ(MetafilePicture(even.Make()).Rows(),
              (Art{"RRRRRRRR", "RRRRRRRR", "RR....RR", "RR....RR", "RRRRRRRR", "RRRRRRRR"}));
    const EmfFile winding = SmallEmf().Stock(8).Brush(1, 0, RedValue).Record(19, {2}).Record(8, rings);
    EXPECT_EQ(MetafilePicture(winding.Make()).Count('R'), 48);

    Bytes words;
    words.U16(2).U16(4).U16(4);
    for (const unsigned value : {0U, 0U, 8U, 0U, 8U, 6U, 0U, 6U, 2U, 2U, 6U, 2U, 6U, 4U, 2U, 4U})
        words.U16(value);
    EXPECT_EQ(
        MetafilePicture(
            Small().Pen(NullPen, 0, 0).Select(0).Brush(0, RedValue).Select(1).Record(0x0538, words).Make())
            .Count('R'),
        40);
}

TEST(MetafileShapes, LinesLeaveTheirLastPixelAway) {
    const Art line{"........", ".####...", "........", "........", "........", "........"};
    EXPECT_EQ(MetafilePicture(Small().Record(0x0214, {1, 1}).Record(0x0213, {1, 5}).Make()).Rows(), line);
    EXPECT_EQ(MetafilePicture(SmallEmf().Record(27, {1, 1}).Record(54, {5, 1}).Make()).Rows(), line);
    EXPECT_EQ(MetafilePicture(SmallEmf().Poly(4, {1, 1, 5, 1}).Make()).Rows(), line);
    EXPECT_EQ(MetafilePicture(SmallEmf().Record(27, {1, 1}).Poly(6, {5, 1}).Make()).Rows(), line);
}

TEST(MetafileShapes, LinesGoOnFromWhereTheLastOneEnded) {
    const Art corner{"........", ".####...", "....#...", "....#...", "........", "........"};
    Bytes polyline;
    polyline.U16(3).U16(1).U16(1).U16(4).U16(1).U16(4).U16(4);
    EXPECT_EQ(
        MetafilePicture(Small().Record(0x0214, {1, 1}).Record(0x0213, {1, 4}).Record(0x0213, {4, 4}).Make())
            .Rows(),
        corner);
    EXPECT_EQ(MetafilePicture(Small().Record(0x0325, polyline).Make()).Rows(), corner);
    EXPECT_EQ(MetafilePicture(SmallEmf().Record(27, {1, 1}).Poly(6, {4, 1}).Record(54, {4, 4}).Make()).Rows(),
              corner);
}

TEST(MetafileShapes, BroadPensCoverWholePixels) {
    EXPECT_EQ(
        MetafilePicture(SmallEmf().Pen(1, 0, 2, RedValue).Record(27, {-5, 3}).Record(54, {15, 3}).Make())
            .Count('R'),
        16);
    const MetafilePicture wmf(
        Small().Pen(0, 3, GreenValue).Select(0).Record(0x0214, {3, -5}).Record(0x0213, {3, 15}).Make());
    EXPECT_EQ(wmf.Rows(), (Art{"........", "........", "GGGGGGGG", "GGGGGGGG", "GGGGGGGG", "........"}));
}

TEST(MetafileShapes, ThinPensHaveStylesAndBackground) {
    const auto dashed = [](int background) {
        return MetafilePicture(EmfFile({.width = 60, .height = 3})
                                   .Record(18, {background})
                                   .Record(25, Bytes().U32(GreenValue))
                                   .Pen(1, 2, 0, RedValue)
                                   .Record(27, {0, 1})
                                   .Record(54, {60, 1})
                                   .Make());
    };
    const MetafilePicture transparent = dashed(1);
    EXPECT_GT(transparent.Count('R'), 20);
    EXPECT_EQ(transparent.Count('G'), 0);
    const MetafilePicture opaque = dashed(2);
    EXPECT_EQ(opaque.Count('R') + opaque.Count('G'), 60);
    EXPECT_GT(opaque.Count('G'), 15);
}

TEST(MetafileShapes, ExtendedPensHaveCapsDashesOfTheirOwnAndNoBackground) {
    const auto pen = [](std::uint32_t style, std::uint32_t width,
                        std::initializer_list<std::uint32_t> dashes) {
        Bytes body;
        body.U32(1).U32(0).U32(0).U32(0).U32(0).U32(style).U32(width).U32(0).U32(RedValue).U32(0);
        body.U32(static_cast<std::uint32_t>(dashes.size()));
        for (const std::uint32_t dash : dashes)
            body.U32(dash);
        return SmallEmf(12, 6).Record(95, body).Select(1).Record(27, {4, 2}).Record(54, {8, 2});
    };
    const MetafilePicture flat(pen(0x10000U | 0x200U, 2, {}).Make());
    const MetafilePicture square(pen(0x10000U | 0x100U, 2, {}).Make());
    EXPECT_EQ(flat.Count('R'), 8);
    EXPECT_EQ(square.Count('R'), 12);
    const MetafilePicture dotted(pen(7, 1, {1, 2}).Make());
    EXPECT_EQ(dotted.Rows()[2], "....R..R....");
    const MetafilePicture squareDots(pen(0x10000U | 0x100U | 2U, 2, {}).Make());
    EXPECT_EQ(squareDots.Rows()[2], "...RR.......") << "the caps leave the gap open";
}

TEST(MetafileShapes, APenInsideItsFrameStaysInTheBox) {
    const auto box = [](int style) {
        return MetafilePicture(
            SmallEmf(12, 12).Pen(1, style, 3, RedValue).Stock(5).Rectangle(2, 2, 9, 9).Make());
    };
    EXPECT_EQ(box(6).Ink(), (std::vector<int>{2, 2, 10, 10}));
    EXPECT_EQ(box(0).Ink(), (std::vector<int>{1, 1, 11, 11}));
}

TEST(MetafileShapes, RoundOnes) {
    const MetafilePicture ellipse(EmfFile({.width = 40, .height = 20})
                                      .Stock(8)
                                      .Brush(1, 0, RedValue)
                                      .Record(42, {0, 0, 40, 20})
                                      .Make());
    EXPECT_NEAR(ellipse.Count('R'), 580, 50);
    EXPECT_EQ(ellipse.At(20, 10), Red);
    EXPECT_EQ(ellipse.At(1, 1), WhitePixel);

    const MetafilePicture plain(WmfFile({{.right = 40, .bottom = 20}})
                                    .Pen(NullPen, 0, 0)
                                    .Select(0)
                                    .Brush(0, RedValue)
                                    .Select(1)
                                    .Record(0x0418, {21, 41, 0, 0})
                                    .Make());
    EXPECT_NEAR(plain.Count('R'), 580, 50);

    const MetafilePicture round(EmfFile({.width = 20, .height = 20})
                                    .Stock(8)
                                    .Brush(1, 0, RedValue)
                                    .Record(44, {0, 0, 20, 20, 10, 10})
                                    .Make());
    EXPECT_EQ(round.At(0, 0), WhitePixel);
    EXPECT_EQ(round.At(10, 0), Red);
    EXPECT_EQ(round.At(0, 10), Red);
    EXPECT_GT(round.Count('R'), 350);
    const MetafilePicture plainRound(WmfFile({{.right = 20, .bottom = 20}})
                                         .Pen(NullPen, 0, 0)
                                         .Select(0)
                                         .Brush(0, RedValue)
                                         .Select(1)
                                         .Record(0x061C, {10, 10, 21, 21, 0, 0})
                                         .Make());
    EXPECT_EQ(plainRound.At(0, 0), WhitePixel);
    EXPECT_GT(plainRound.Count('R'), 350);
}

/// The quarter from the right to the top, counter-clockwise.
TEST(MetafileShapes, ArcsChordsAndPies) {
    const auto enhanced = [](unsigned type) {
        return MetafilePicture(EmfFile({.width = 41, .height = 41})
                                   .Brush(1, 0, RedValue)
                                   .Record(type, {0, 0, 40, 40, 40, 20, 20, 0})
                                   .Make());
    };
    const auto plain = [](unsigned function) {
        return MetafilePicture(WmfFile({{.right = 41, .bottom = 41}})
                                   .Brush(0, RedValue)
                                   .Select(0)
                                   .Record(function, {0, 20, 20, 40, 41, 41, 0, 0})
                                   .Make());
    };
    for (const MetafilePicture& arc : {enhanced(45), plain(0x0817)}) {
        EXPECT_EQ(arc.Count('R'), 0);
        EXPECT_EQ(arc.Ink(), (std::vector<int>{19, 0, 41, 22}));
        EXPECT_NE(arc.At(34, 6), WhitePixel);
    }
    for (const MetafilePicture& chord : {enhanced(46), plain(0x0830)}) {
        EXPECT_NEAR(chord.Count('R'), 70, 30);
        EXPECT_EQ(chord.At(24, 16), WhitePixel);
    }
    for (const MetafilePicture& pie : {enhanced(47), plain(0x081A)}) {
        EXPECT_NEAR(pie.Count('R'), 314, 70);
        EXPECT_EQ(pie.At(24, 16), Red);
        EXPECT_EQ(pie.At(16, 24), WhitePixel);
    }
    const MetafilePicture clockwise(EmfFile({.width = 41, .height = 41})
                                        .Record(57, {2})
                                        .Stock(4)
                                        .Record(47, {0, 0, 40, 40, 40, 20, 20, 0})
                                        .Make());
    EXPECT_EQ(clockwise.At(24, 16), WhitePixel);
    EXPECT_EQ(clockwise.At(16, 24), BlackPixel);
}

TEST(MetafileShapes, ArcToAndAngleArcBeginWithALineAndMoveOn) {
    const MetafilePicture arc(EmfFile({.width = 41, .height = 41})
                                  .Record(27, {40, 39})
                                  .Record(55, {0, 0, 40, 40, 40, 20, 20, 0})
                                  .Record(54, {0, 0})
                                  .Make());
    EXPECT_EQ(arc.At(40, 30), BlackPixel);
    EXPECT_EQ(arc.At(10, 0), BlackPixel);
    Bytes body;
    body.I32(20).I32(20).U32(20).U32(EmfFile::Float(0)).U32(EmfFile::Float(90));
    const MetafilePicture angle(
        EmfFile({.width = 41, .height = 41}).Record(27, {40, 39}).Record(41, body).Record(54, {0, 0}).Make());
    EXPECT_EQ(angle.At(40, 30), BlackPixel);
    EXPECT_EQ(angle.At(10, 0), BlackPixel);
    EXPECT_NE(angle.At(34, 6), WhitePixel);
}

TEST(MetafileShapes, Curves) {
    const EmfFile straight = SmallEmf(12, 6).Poly(2, {1, 2, 4, 2, 7, 2, 10, 2});
    EXPECT_EQ(MetafilePicture(straight.Make()).Ink(), (std::vector<int>{1, 2, 11, 3}));
    const EmfFile going = SmallEmf(12, 6).Record(27, {1, 2}).Poly(5, {4, 2, 7, 2, 10, 2}).Record(54, {10, 5});
    EXPECT_EQ(MetafilePicture(going.Make()).Ink(), (std::vector<int>{1, 2, 11, 5}));
    EXPECT_EQ(MetafilePicture(SmallEmf(12, 6).Poly(2, {1, 2, 4, 2}).Make()).Count('.'), 72)
        << "too few points for a curve";
}

TEST(MetafileShapes, PolyDrawTakesEachPointByItsType) {
    Bytes draw = EmfFile::Bounds().U32(6);
    for (const int value : {1, 1, 6, 1, 6, 4, 1, 4, 0, 0, 3, 0})
        draw.I32(value);
    draw.U8({6, 2, 2, 3, 6, 2});
    const MetafilePicture drawn(SmallEmf().Record(56, draw).Make());
    EXPECT_EQ(drawn.Rows()[2], ".#....#.");
    EXPECT_EQ(drawn.Rows()[4], ".######.");
    EXPECT_EQ(drawn.At(0, 0), BlackPixel);
    Bytes closed = EmfFile::Bounds().U32(3).I32(1).I32(1).I32(6).I32(1).I32(6).I32(4).U8({6, 2, 3});
    const MetafilePicture goesOn(SmallEmf().Record(56, closed).Record(54, {1, 5}).Make());
    EXPECT_EQ(goesOn.At(1, 4), BlackPixel) << "from where the closing line ended";
    EXPECT_EQ(goesOn.At(2, 5), WhitePixel);
    Bytes senseless = EmfFile::Bounds().U32(1).I32(5).I32(5).U8({9});
    EXPECT_EQ(MetafilePicture(SmallEmf().Record(56, senseless).Make()).Count('.'), 48);
}

TEST(MetafileShapes, SinglePixelsAndFloods) {
    const MetafilePicture pixels(Small()
                                     .Record(0x041F, Bytes().U32(RedValue).U16(2).U16(3))
                                     .Record(0x041F, Bytes().U32(BlueValue).U16(0).U16(0))
                                     .Make());
    EXPECT_EQ(pixels.At(3, 2), Red);
    EXPECT_EQ(pixels.At(0, 0), Blue);
    EXPECT_EQ(pixels.Count('.'), 46);
    EXPECT_EQ(MetafilePicture(SmallEmf().Record(15, Bytes().I32(3).I32(2).U32(RedValue)).Make()).At(3, 2),
              Red);

    const Art filled{"........", ".#####..", ".#RRR#..", ".#RRR#..", ".#####..", "........"};
    EXPECT_EQ(MetafilePicture(Small()
                                  .Rectangle(1, 1, 6, 5)
                                  .Brush(0, RedValue)
                                  .Select(0)
                                  .Record(0x0419, Bytes().U32(0).U16(2).U16(3))
                                  .Make())
                  .Rows(),
              filled)
        << "up to the border";
    EXPECT_EQ(MetafilePicture(Small()
                                  .Rectangle(1, 1, 6, 5)
                                  .Brush(0, RedValue)
                                  .Select(0)
                                  .Record(0x0548, Bytes().U16(1).U32(WhiteValue).U16(2).U16(3))
                                  .Make())
                  .Rows(),
              filled)
        << "over the colour";
    EXPECT_EQ(MetafilePicture(SmallEmf()
                                  .Rectangle(1, 1, 5, 4)
                                  .Brush(1, 0, RedValue)
                                  .Record(53, Bytes().I32(3).I32(2).U32(WhiteValue).U32(1))
                                  .Make())
                  .Rows(),
              filled);
}

TEST(MetafileShapes, Gradients) {
    const auto vertex = [](Bytes& body, int x, int y, unsigned red, unsigned blue) {
        body.I32(x).I32(y).U16(red).U16(0).U16(blue).U16(0);
    };
    Bytes across = EmfFile::Bounds().U32(2).U32(1).U32(0);
    vertex(across, 0, 0, 0xFF00, 0);
    vertex(across, 100, 10, 0, 0xFF00);
    across.U32(0).U32(1);
    const MetafilePicture horizontal(EmfFile({.width = 100, .height = 10}).Record(118, across).Make());
    EXPECT_GT(horizontal.At(1, 5) & 0xFF0000U, 0xF00000U);
    EXPECT_LT(horizontal.At(98, 5) & 0xFF0000U, 0x100000U);
    EXPECT_NEAR((horizontal.At(50, 5) >> 16U) & 0xFFU, 127, 4);
    EXPECT_NEAR(horizontal.At(50, 5) & 0xFFU, 127, 4);

    Bytes triangle = EmfFile::Bounds().U32(3).U32(1).U32(2);
    vertex(triangle, 0, 0, 0xFF00, 0);
    vertex(triangle, 20, 0, 0xFF00, 0);
    vertex(triangle, 0, 20, 0xFF00, 0);
    triangle.U32(0).U32(1).U32(2);
    const MetafilePicture corner(EmfFile({.width = 20, .height = 20}).Record(118, triangle).Make());
    EXPECT_EQ(corner.At(3, 3), Red);
    EXPECT_EQ(corner.At(18, 18), WhitePixel);
}

TEST(MetafileShapes, RasterOperationsCombineWithWhatIsThere) {
    const EmfFile inverted = SmallEmf(4, 1).Fill(0, 0, 2, 1, 0).Record(20, {6}).Fill(1, 0, 3, 1, RedValue);
    EXPECT_EQ(MetafilePicture(inverted.Make()).Rows(), (Art{"#.#."}));
    const EmfFile exclusive = SmallEmf(4, 1).Record(20, {7}).Fill(1, 0, 3, 1, WhiteValue & ~RedValue);
    EXPECT_EQ(MetafilePicture(exclusive.Make()).Rows(), (Art{".RR."}));
    const WmfFile nothing = Small(4, 1).Record(0x0104, {11}).Rectangle(0, 0, 4, 4);
    EXPECT_EQ(MetafilePicture(nothing.Make()).Count('.'), 4);
}

}  // namespace
}  // namespace tavrix::test
