#include <gtest/gtest.h>

#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;
using test::Canvas;
using test::Rows;

constexpr Pixel Wall = 0xFFFF0000U;

/// '#' becomes a wall.
void Build(Canvas& canvas, const Rows& plan) {
    for (std::size_t y = 0; y < plan.size(); ++y)
        for (std::size_t x = 0; x < plan[y].size(); ++x)
            if (plan[y][x] == '#') canvas.surface.Row(static_cast<int>(y))[x] = Wall;
}

Rows Filled(const Canvas& canvas) {
    Rows rows;
    for (int y = 0; y < canvas.surface.Height(); ++y) {
        std::string row;
        for (int x = 0; x < canvas.surface.Width(); ++x)
            row += canvas.At(x, y) == Wall ? '#' : canvas.At(x, y) == test::BlackInk ? 'o' : '.';
        rows.push_back(row);
    }
    return rows;
}

const Rows Maze{"...#....",  //
                ".#.#.##.",  //
                ".#...#..",  //
                ".#####.#",  //
                ".......#"};

TEST(Flood, ReachesAllThatIsJoined) {
    Canvas canvas(8, 5);
    Build(canvas, Maze);
    canvas.painter.FloodFillUpTo(0, 4, Wall, test::BlackBrush);
    EXPECT_EQ(Filled(canvas), (Rows{"ooo#oooo",  //
                                    "o#o#o##o",  //
                                    "o#ooo#oo",  //
                                    "o#####o#",  //
                                    "ooooooo#"}));
}

TEST(Flood, OverAColourStopsAtOthers) {
    Canvas canvas(8, 5);
    Build(canvas, Maze);
    canvas.painter.FloodFillOver(3, 0, Wall, test::BlackBrush);
    EXPECT_EQ(Filled(canvas), (Rows{"...o....",  //
                                    ".#.o.##.",  //
                                    ".#...#..",  //
                                    ".#####.#",  //
                                    ".......#"}));
    // Corners do not join.
    canvas.painter.FloodFillOver(5, 3, Wall, test::BlackBrush);
    EXPECT_EQ(Filled(canvas)[1], ".o.o.oo.");
    EXPECT_EQ(Filled(canvas)[3], ".ooooo.#");
}

TEST(Flood, StartingOnTheWrongColourFillsNothing) {
    Canvas canvas(8, 5);
    Build(canvas, Maze);
    canvas.painter.FloodFillUpTo(3, 0, Wall, test::BlackBrush);
    canvas.painter.FloodFillOver(0, 0, Wall, test::BlackBrush);
    canvas.painter.FloodFillUpTo(-1, 0, Wall, test::BlackBrush);
    canvas.painter.FloodFillUpTo(0, 99, Wall, test::BlackBrush);
    EXPECT_EQ(Filled(canvas), Maze);
}

TEST(Flood, EndsWithABrushOfTheColourThatIsThere) {
    Canvas canvas(8, 5);
    canvas.painter.FloodFillOver(0, 0, test::Paper, Brush::Solid(test::Paper));
    EXPECT_EQ(canvas.Art(), Rows(5, "........"));
}

TEST(Flood, StaysInsideTheClip) {
    Canvas canvas(5, 3);
    canvas.painter.SetClip(Region(PixelRect{1, 0, 3, 2}));
    canvas.painter.FloodFillUpTo(2, 1, Wall, test::BlackBrush);
    EXPECT_EQ(Filled(canvas), (Rows{".ooo.", ".ooo.", "....."}));
}

TEST(Flood, OfALargeSurfaceTakesLittleMemory) {
    Canvas canvas(2000, 2000);
    // A chequerboard is the worst there is for those who remember where to go on.
    for (int y = 0; y < 2000; ++y)
        for (int x = y % 2; x < 2000; x += 2)
            if (y % 50 != 0) canvas.surface.Row(y)[static_cast<std::size_t>(x)] = Wall;
    canvas.painter.FloodFillUpTo(0, 0, Wall, test::BlackBrush);
    EXPECT_EQ(canvas.At(1999, 0), test::BlackInk);
    EXPECT_FALSE(canvas.painter.Failed());
}

}  // namespace
}  // namespace tavrix
