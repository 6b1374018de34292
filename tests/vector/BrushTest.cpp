#include <gtest/gtest.h>

#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;
using test::BoxOf;
using test::Canvas;
using test::Rows;

Rows HatchOf(HatchStyle style) {
    Canvas canvas(8, 8);
    Brush brush;
    brush.kind = HatchBrush{style, test::BlackInk, std::nullopt};
    canvas.painter.Fill(BoxOf(0, 0, 8, 8), FillRule::EvenOdd, brush);
    return canvas.Art();
}

TEST(Brush, HatchesAreLinesEightPixelsApart) {
    EXPECT_EQ(HatchOf(HatchStyle::Horizontal), (Rows{"........", "........", "........", "........",  //
                                                     "########", "........", "........", "........"}));
    EXPECT_EQ(HatchOf(HatchStyle::Vertical), Rows(8, "....#..."));
    EXPECT_EQ(HatchOf(HatchStyle::ForwardDiagonal), (Rows{"#.......", ".#......", "..#.....", "...#....",  //
                                                          "....#...", ".....#..", "......#.", ".......#"}));
    EXPECT_EQ(HatchOf(HatchStyle::BackwardDiagonal), (Rows{".......#", "......#.", ".....#..", "....#...",  //
                                                           "...#....", "..#.....", ".#......", "#......."}));
    EXPECT_EQ(HatchOf(HatchStyle::Cross), (Rows{"....#...", "....#...", "....#...", "....#...",  //
                                                "########", "....#...", "....#...", "....#..."}));
    EXPECT_EQ(HatchOf(HatchStyle::DiagonalCross), (Rows{"#......#", ".#....#.", "..#..#..", "...##...",  //
                                                        "...##...", "..#..#..", ".#....#.", "#......#"}));
}

TEST(Brush, HatchesHaveABackgroundOrNone) {
    Canvas canvas(8, 8);
    canvas.surface.Fill(0xFF00FF00U);
    Brush brush;
    brush.kind = HatchBrush{HatchStyle::Horizontal, test::BlackInk, std::nullopt};
    canvas.painter.Fill(BoxOf(0, 0, 8, 8), FillRule::EvenOdd, brush);
    EXPECT_EQ(canvas.At(0, 0), 0xFF00FF00U);
    brush.kind = HatchBrush{HatchStyle::Horizontal, test::BlackInk, 0xFF0000FFU};
    canvas.painter.Fill(BoxOf(0, 0, 8, 8), FillRule::EvenOdd, brush);
    EXPECT_EQ(canvas.At(0, 0), 0xFF0000FFU);
    EXPECT_EQ(canvas.At(0, 4), test::BlackInk);
}

TEST(Brush, ThatLetsThroughLeavesWhatIsThereUnderAnyOperation) {
    Canvas canvas(8, 8);
    canvas.surface.Fill(0xFF123456U);
    Brush brush;
    brush.kind = HatchBrush{HatchStyle::Vertical, 0xFFFFFFFFU, std::nullopt};
    canvas.painter.PatternBlit({0, 0, 8, 8}, brush, 0x5A);
    EXPECT_EQ(canvas.At(0, 0), 0xFF123456U);
    EXPECT_EQ(canvas.At(4, 0), 0xFF123456U ^ 0x00FFFFFFU);
}

Brush PatternOf(int width, int height) {
    auto tile = std::make_shared<Surface>(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            tile->Row(y)[static_cast<std::size_t>(x)] = static_cast<Pixel>(y * 16 + x);
    Brush brush;
    brush.kind = PatternBrush{std::move(tile)};
    return brush;
}

TEST(Brush, PatternsRepeatFromTheirOrigin) {
    for (const int origin : {0, 1, -1, 5, -7, 1'000'000, -2'000'000'000}) {
        Canvas canvas(9, 7);
        Brush brush = PatternOf(3, 2);
        brush.originX = brush.originY = origin;
        canvas.painter.Fill(BoxOf(0, 0, 9, 7), FillRule::EvenOdd, brush);
        for (int y = 0; y < 7; ++y)
            for (int x = 0; x < 9; ++x) {
                const auto wrap = [&](std::int64_t at, int size) {
                    return static_cast<int>(((at - origin) % size + size) % size);
                };
                EXPECT_EQ(canvas.At(x, y), 0xFF000000U | static_cast<Pixel>(wrap(y, 2) * 16 + wrap(x, 3)));
            }
    }
}

TEST(Brush, PensTakePatternsToo) {
    Canvas canvas(8, 3);
    Pen pen;
    pen.brush = PatternOf(2, 1);
    canvas.painter.Stroke(test::PolylineOf({{0, 1}, {7, 1}}), pen);
    EXPECT_EQ(canvas.At(4, 1), 0xFF000000U);
    EXPECT_EQ(canvas.At(5, 1), 0xFF000001U);
}

TEST(Brush, NoneAndEmptyPatternsFillNothing) {
    Canvas canvas(4, 4);
    Brush empty;
    empty.kind = PatternBrush{};
    EXPECT_TRUE(empty.Null());
    canvas.painter.Fill(BoxOf(0, 0, 4, 4), FillRule::EvenOdd, empty);
    empty.kind = PatternBrush{std::make_shared<Surface>()};
    canvas.painter.Fill(BoxOf(0, 0, 4, 4), FillRule::EvenOdd, empty);
    canvas.painter.Fill(BoxOf(0, 0, 4, 4), FillRule::EvenOdd, Brush::None());
    canvas.painter.PatternBlit({0, 0, 4, 4}, Brush::None());
    EXPECT_EQ(canvas.Art(), Rows(4, "...."));
}

}  // namespace
}  // namespace tavrix
