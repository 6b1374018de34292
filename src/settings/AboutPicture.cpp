#include "settings/AboutPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace tavrix {
namespace {

struct Tone {
    double red = 0;
    double green = 0;
    double blue = 0;
};

constexpr Tone SunTone{255, 226, 140};
constexpr Tone MoonTone{232, 236, 244};
constexpr Tone StarTone{225, 230, 255};

Tone Mixed(const Tone& a, const Tone& b, double share) {
    const auto mix = [share](double from, double to) { return from + (to - from) * share; };
    return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue)};
}

Pixel ToPixel(const Tone& tone) {
    const auto part = [](double value) { return static_cast<unsigned>(std::clamp(value, 0.0, 255.0)); };
    return OpaquePixel(part(tone.red), part(tone.green), part(tone.blue));
}

/// What a moment of the day looks like: the sky above, at the horizon, and the land.
struct Light {
    double day;
    Tone zenith;
    Tone horizon;
    Tone land;
};

constexpr std::array<Light, 8> Lights{{{0.00, {8, 12, 34}, {22, 30, 66}, {10, 14, 30}},
                                       {0.20, {12, 18, 48}, {50, 48, 92}, {14, 18, 36}},
                                       {0.27, {74, 98, 158}, {246, 168, 120}, {52, 50, 76}},
                                       {0.38, {92, 158, 222}, {204, 228, 242}, {84, 112, 112}},
                                       {0.62, {80, 148, 218}, {198, 226, 242}, {80, 112, 106}},
                                       {0.73, {88, 84, 150}, {255, 142, 84}, {64, 46, 68}},
                                       {0.82, {20, 24, 62}, {74, 56, 98}, {18, 20, 40}},
                                       {1.00, {8, 12, 34}, {22, 30, 66}, {10, 14, 30}}}};

Light LightAt(double day) {
    for (std::size_t i = 1; i < Lights.size(); ++i) {
        const Light& before = Lights.at(i - 1);
        const Light& after = Lights.at(i);
        if (day > after.day) continue;
        const double share = (day - before.day) / (after.day - before.day);
        return {day, Mixed(before.zenith, after.zenith, share), Mixed(before.horizon, after.horizon, share),
                Mixed(before.land, after.land, share)};
    }
    return Lights.back();
}

struct Point {
    double x = 0;
    double y = 0;
};

/// Draws in a picture of 420 by 200, whatever the size of the surface.
class Painter {
  public:
    static constexpr double Width = 420;
    static constexpr double Height = 200;
    static constexpr double Horizon = 128;

    Painter(Surface& surface, const AboutMoment& moment)
        : surface_(surface),
          moment_(moment),
          light_(LightAt(moment.day)),
          across_(surface.Width() / Width),
          down_(surface.Height() / Height) {}

    void Draw() {
        DrawSky();
        DrawStars();
        DrawLights();
        DrawLand();
        DrawSea();
        DrawBoat();
    }

  private:
    [[nodiscard]] double Angle() const { return moment_.day * 2 * std::numbers::pi; }
    [[nodiscard]] Point Sun() const {
        return {210 - 170 * std::sin(Angle()), Horizon + 104 * std::cos(Angle())};
    }
    [[nodiscard]] Point Moon() const {
        return {210 + 150 * std::sin(Angle()), Horizon - 92 * std::cos(Angle())};
    }
    /// How dark it is: 0 by day, 1 at night.
    [[nodiscard]] double Night() const { return std::clamp((std::cos(Angle()) - 0.05) * 2.5, 0.0, 1.0); }

    void FillRow(int y, const Tone& tone) { std::ranges::fill(surface_.Row(y), ToPixel(tone)); }

    void DrawSky() {
        const int end = RowOf(Horizon);
        for (int y = 0; y < end; ++y)
            FillRow(y, Mixed(light_.zenith, light_.horizon, std::pow(static_cast<double>(y) / end, 1.6)));
    }

    void DrawStars() {
        const double night = Night();
        if (night <= 0) return;
        constexpr int stars = 60;
        std::uint32_t place = 12345;
        const auto next = [&place] { return (place = place * 1664525U + 1013904223U) >> 8U; };
        for (int i = 0; i < stars; ++i) {
            const auto x = static_cast<double>(next() % 420U);
            const auto y = static_cast<double>(next() % 110U);
            const double twinkle = 0.65 + 0.35 * std::sin(moment_.swell * 1.7 + i * 2.4);
            Disc({x, y}, i % 7 == 0 ? 1.1 : 0.7, StarTone, night * twinkle);
        }
    }

    void DrawLights() {
        const Point sun = Sun();
        Disc(sun, 34, SunTone, 0.16);
        Disc(sun, 22, SunTone, 0.22);
        Disc(sun, 13, SunTone, 1);
        const double night = Night();
        Disc(Moon(), 9, MoonTone, night);
    }

    void DrawLand() {
        const int end = RowOf(Horizon);
        for (int x = 0; x < surface_.Width(); ++x) {
            const double at = x / across_;
            const double far = 12 + 9 * std::sin(at / 47 + 1) + 6 * std::sin(at / 19);
            const double near = 17 * std::sin(at / 80 + 3.4) + 3 * std::sin(at / 11);
            for (int y = std::max(RowOf(Horizon - far), 0); y < end; ++y)
                Mix(x, y, Mixed(light_.land, light_.horizon, 0.45), 1);
            for (int y = std::max(RowOf(Horizon - near), 0); y < end; ++y)
                Mix(x, y, light_.land, 1);
        }
    }

    void DrawSea() {
        const int first = std::max(RowOf(Horizon), 0);
        const Tone deep = Mixed(light_.zenith, Tone{0, 26, 54}, 0.45);
        for (int y = first; y < surface_.Height(); ++y) {
            const double depth = static_cast<double>(y - first) / (surface_.Height() - first);
            FillRow(y, Mixed(Mixed(light_.horizon, light_.zenith, 0.35), deep, std::sqrt(depth)));
        }
        DrawGlitter(Sun(), SunTone, std::clamp(-std::cos(Angle()) * 3 + 0.6, 0.0, 1.0));
        DrawGlitter(Moon(), MoonTone, Night() * 0.7);
        constexpr int waves = 34;
        for (int i = 0; i < waves; ++i) {
            const double depth = (i + 0.5) / waves;
            const double y = Horizon + 3 + 69 * depth * depth;
            const double x = std::fmod(i * 97.3 + moment_.swell * (3 + 9 * depth), Width + 60) - 30;
            Dash({x, y + std::sin(moment_.swell + i) * depth * 1.5}, 5 + 22 * depth, light_.horizon, 0.28);
        }
    }

    /// The way that a light lays on the water.
    void DrawGlitter(const Point& light, const Tone& tone, double strength) {
        if (strength <= 0) return;
        constexpr int dashes = 18;
        for (int i = 0; i < dashes; ++i) {
            const double depth = (i + 0.5) / dashes;
            const double sway = std::sin(moment_.swell * 2 + i * 1.9) * (2 + 10 * depth);
            Dash({light.x + sway, Horizon + 1 + 68 * depth}, 4 + 16 * depth, tone,
                 strength * 0.5 * (1 - 0.6 * depth));
        }
    }

    void DrawBoat() {
        const double heel = 0.05 * std::sin(moment_.swell * 1.3) + 0.04;
        const Point origin{-40 + (Width + 80) * moment_.trip, 158 + 1.6 * std::sin(moment_.swell * 1.9)};
        const auto at = [&](double x, double y) -> Point {
            return {origin.x + x * std::cos(heel) - y * std::sin(heel),
                    origin.y + x * std::sin(heel) + y * std::cos(heel)};
        };
        const double night = Night();
        const Tone dark = Mixed(Tone{92, 52, 34}, Tone{18, 16, 26}, night);
        const Tone sail = Mixed(Tone{252, 248, 236}, Tone{86, 92, 120}, night);
        const Tone jib = Mixed(Tone{214, 74, 58}, Tone{70, 40, 58}, night);
        Triangle(at(2, -52), at(2, -4), at(27, -4), sail);
        Triangle(at(0, -48), at(0, -5), at(-17, -4), jib);
        Triangle(at(-0.6, -54), at(-0.6, 0), at(1.4, 0), dark);
        Triangle(at(-24, -2), at(30, -2), at(20, 8), dark);
        Triangle(at(-24, -2), at(20, 8), at(-16, 8), dark);
        Disc(at(0.4, -54), 1.6, Tone{255, 214, 120}, night);
        Dash(at(0, 9), 52, light_.horizon, 0.45);
    }

    [[nodiscard]] int RowOf(double y) const {
        return std::min(static_cast<int>(std::lround(y * down_)), surface_.Height());
    }

    void Mix(int x, int y, const Tone& tone, double share) {
        if (x < 0 || y < 0 || x >= surface_.Width() || y >= surface_.Height() || share <= 0) return;
        Pixel& pixel = surface_.Row(y)[static_cast<std::size_t>(x)];
        const Tone below{static_cast<double>((pixel >> 16U) & 0xFFU),
                         static_cast<double>((pixel >> 8U) & 0xFFU), static_cast<double>(pixel & 0xFFU)};
        pixel = ToPixel(Mixed(below, tone, std::min(share, 1.0)));
    }

    /// Part of a row, from x1 to x2 in pixels of the surface, with soft ends.
    void Span(int y, double x1, double x2, const Tone& tone, double share) {
        for (int x = static_cast<int>(std::floor(x1)); x < x2; ++x) {
            const double covered = std::min(x2, x + 1.0) - std::max(x1, static_cast<double>(x));
            Mix(x, y, tone, covered * share);
        }
    }

    void Disc(const Point& middle, double radius, const Tone& tone, double share) {
        const double high = radius * down_;
        const double middleRow = middle.y * down_;
        for (int y = static_cast<int>(middleRow - high); y <= static_cast<int>(middleRow + high); ++y) {
            const double off = (y + 0.5 - middleRow) / high;
            if (std::abs(off) >= 1) continue;
            const double half = radius * across_ * std::sqrt(1 - off * off);
            Span(y, middle.x * across_ - half, middle.x * across_ + half, tone, share);
        }
    }

    void Dash(const Point& middle, double length, const Tone& tone, double share) {
        const double half = length * across_ / 2;
        const int thick = std::max(static_cast<int>(std::lround(down_)), 1);
        for (int row = 0; row < thick; ++row)
            Span(RowOf(middle.y) + row, middle.x * across_ - half, middle.x * across_ + half, tone, share);
    }

    void Triangle(Point a, Point b, Point c, const Tone& tone) {
        std::array<Point, 3> corners{a, b, c};
        for (Point& corner : corners)
            corner = {corner.x * across_, corner.y * down_};
        const auto [low, high] = std::ranges::minmax(corners, {}, &Point::y);
        for (int y = static_cast<int>(std::floor(low.y)); y <= static_cast<int>(high.y); ++y) {
            const double level = y + 0.5;
            double from = surface_.Width();
            double to = -1;
            for (std::size_t i = 0; i < corners.size(); ++i) {
                const Point& p = corners.at(i);
                const Point& q = corners.at((i + 1) % corners.size());
                if ((p.y <= level) == (q.y <= level)) continue;
                const double x = p.x + (q.x - p.x) * (level - p.y) / (q.y - p.y);
                from = std::min(from, x);
                to = std::max(to, x);
            }
            if (from < to) Span(y, from, to, tone, 1);
        }
    }

    Surface& surface_;
    const AboutMoment& moment_;
    Light light_;
    double across_;
    double down_;
};

}  // namespace

void DrawAboutPicture(Surface& surface, const AboutMoment& moment) {
    if (!surface.Empty()) Painter(surface, moment).Draw();
}

}  // namespace tavrix
