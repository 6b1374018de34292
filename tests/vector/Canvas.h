#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "imaging/vector/Painter.h"

namespace tavrix::test {

inline constexpr Pixel BlackInk = 0xFF000000U;
inline constexpr Pixel Paper = 0xFFFFFFFFU;

/// A small white surface with a painter, whose pixels can be looked at as text.
struct Canvas {
    Canvas(int width, int height) : surface(width, height), painter(surface, budget) { surface.Fill(Paper); }

    [[nodiscard]] Pixel At(int x, int y) const { return surface.Row(y)[static_cast<std::size_t>(x)]; }
    /// How black a pixel is, 0 to 255, for those who draw in black.
    [[nodiscard]] int InkAt(int x, int y) const { return 255 - static_cast<int>(At(x, y) & 0xFFU); }

    /// A row of text for each row of pixels: '.' white, '#' black, '+' between.
    [[nodiscard]] std::vector<std::string> Art() const {
        std::vector<std::string> rows;
        for (int y = 0; y < surface.Height(); ++y) {
            std::string row;
            for (int x = 0; x < surface.Width(); ++x)
                row += InkAt(x, y) == 255 ? '#' : InkAt(x, y) == 0 ? '.' : '+';
            rows.push_back(row);
        }
        return rows;
    }

    Surface surface;
    vector::WorkBudget budget;
    vector::Painter painter;
};

using Rows = std::vector<std::string>;

inline vector::Path PolygonOf(std::vector<vector::Point> points) {
    vector::Path path;
    path.AddPolygon(points);
    return path;
}

inline vector::Path PolylineOf(std::vector<vector::Point> points) {
    vector::Path path;
    path.AddPolyline(points);
    return path;
}

inline vector::Path BoxOf(double left, double top, double right, double bottom) {
    vector::Path path;
    path.AddBox({left, top, right, bottom});
    return path;
}

inline const vector::Brush BlackBrush = vector::Brush::Solid(BlackInk);

/// The same numbers in every run.
class Numbers {
  public:
    explicit Numbers(unsigned seed) : engine_(seed) {}
    double Between(double low, double high) {
        return low + (high - low) * static_cast<double>(engine_()) / static_cast<double>(std::mt19937::max());
    }
    int Below(int count) { return static_cast<int>(engine_() % static_cast<unsigned>(count)); }
    Pixel Colour() { return 0xFF000000U | static_cast<Pixel>(engine_()); }

  private:
    std::mt19937 engine_;
};

}  // namespace tavrix::test
