// Filled polygons against a plain count of the points inside.
#include <gtest/gtest.h>

#include <cmath>

#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;

constexpr int Size = 12;
constexpr int Samples = 32;  // a side of a pixel

int WindingAt(const std::vector<std::vector<Point>>& polygons, double x, double y) {
    int winding = 0;
    for (const auto& polygon : polygons) {
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const Point a = polygon[i], b = polygon[(i + 1) % polygon.size()];
            if ((a.y <= y) == (b.y <= y)) continue;
            if (a.x + (y - a.y) * (b.x - a.x) / (b.y - a.y) <= x) winding += b.y > a.y ? 1 : -1;
        }
    }
    return winding;
}

bool IsInside(FillRule rule, int winding) {
    return rule == FillRule::NonZero ? winding != 0 : winding % 2 != 0;
}

std::vector<Point> RandomPolygon(test::Numbers& numbers, int corners, double beyond) {
    std::vector<Point> points;
    for (int i = 0; i < corners; ++i)
        points.push_back({numbers.Between(-beyond, Size + beyond), numbers.Between(-beyond, Size + beyond)});
    return points;
}

TEST(FillArea, TrianglesCoverWhatSamplingSays) {
    test::Numbers numbers(1);
    for (int round = 0; round < 100; ++round) {
        const std::vector<std::vector<Point>> polygons{RandomPolygon(numbers, 3, 5)};
        test::Canvas canvas(Size, Size);
        canvas.painter.Fill(test::PolygonOf(polygons[0]), FillRule::EvenOdd, test::BlackBrush);
        for (int y = 0; y < Size; ++y)
            for (int x = 0; x < Size; ++x) {
                int inside = 0;
                for (int sy = 0; sy < Samples; ++sy)
                    for (int sx = 0; sx < Samples; ++sx)
                        inside +=
                            WindingAt(polygons, x + (sx + 0.5) / Samples, y + (sy + 0.5) / Samples) != 0;
                EXPECT_NEAR(canvas.InkAt(x, y), 255.0 * inside / (Samples * Samples), 8)
                    << round << ": " << x << ' ' << y;
            }
    }
}

TEST(FillArea, CrossingPolygonsAreRightWhereNoBorderIs) {
    test::Numbers numbers(2);
    for (int round = 0; round < 100; ++round) {
        const FillRule rule = round % 2 == 0 ? FillRule::EvenOdd : FillRule::NonZero;
        const std::vector<std::vector<Point>> polygons{RandomPolygon(numbers, 7, 9),
                                                       RandomPolygon(numbers, 5, 2)};
        Path path = test::PolygonOf(polygons[0]);
        path.Append(test::PolygonOf(polygons[1]));
        test::Canvas canvas(Size, Size);
        canvas.painter.Fill(path, rule, test::BlackBrush);
        for (int y = 0; y < Size; ++y)
            for (int x = 0; x < Size; ++x) {
                int inside = 0;
                for (int s = 0; s < 16 * 16; ++s)
                    inside +=
                        IsInside(rule, WindingAt(polygons, x + (s % 16 + 0.5) / 16, y + (s / 16 + 0.5) / 16));
                if (inside == 0) {
                    EXPECT_LE(canvas.InkAt(x, y), 8) << round << ": " << x << ' ' << y;
                }
                if (inside == 256) {
                    EXPECT_GE(canvas.InkAt(x, y), 247) << round << ": " << x << ' ' << y;
                }
            }
    }
}

TEST(FillArea, CentresDecideExactlyWithoutAntialiasing) {
    test::Numbers numbers(3);
    for (int round = 0; round < 200; ++round) {
        const FillRule rule = round % 2 == 0 ? FillRule::EvenOdd : FillRule::NonZero;
        const std::vector<std::vector<Point>> polygons{RandomPolygon(numbers, 8, 20)};
        test::Canvas canvas(Size, Size);
        canvas.painter.SetAntialias(false);
        canvas.painter.Fill(test::PolygonOf(polygons[0]), rule, test::BlackBrush);
        for (int y = 0; y < Size; ++y)
            for (int x = 0; x < Size; ++x)
                EXPECT_EQ(canvas.InkAt(x, y),
                          IsInside(rule, WindingAt(polygons, x + 0.5, y + 0.5)) ? 255 : 0);
    }
}

}  // namespace
}  // namespace tavrix
