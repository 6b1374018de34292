#include "imaging/vector/Arcs.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavrix::vector {
namespace {

constexpr double Pi = std::numbers::pi;

/// A piece of an ellipse by angles of its parameter, growing clockwise on the screen.
struct Sector {
    Point centre;
    double radiusX = 0;
    double radiusY = 0;
    double start = 0;
    double sweep = 0;

    [[nodiscard]] Point At(double angle) const {
        return {centre.x + radiusX * std::cos(angle), centre.y + radiusY * std::sin(angle)};
    }
    [[nodiscard]] Point Start() const { return At(start); }
};

/// The current point of the path is the start of the sector.
void AddCurves(Path& path, const Sector& sector) {
    // A little more than a quarter a curve, so that rounding does not make five of a whole ellipse.
    const int count = std::max(1, static_cast<int>(std::ceil(std::abs(sector.sweep) / (Pi / 2 + 1e-6))));
    const double step = sector.sweep / count;
    const double handle = 4.0 / 3.0 * std::tan(step / 4);
    for (int i = 0; i < count; ++i) {
        const double a = sector.start + step * i;
        const double b = a + step;
        const Point from = sector.At(a);
        const Point to = sector.At(b);
        path.CubicTo(
            {from.x - handle * sector.radiusX * std::sin(a), from.y + handle * sector.radiusY * std::cos(a)},
            {to.x + handle * sector.radiusX * std::sin(b), to.y - handle * sector.radiusY * std::cos(b)}, to);
    }
}

/// The parameter of the ellipse where the ray through a point meets it.
double ParameterOf(const Sector& ellipse, Point through) {
    const Point d = through - ellipse.centre;
    const double x = ellipse.radiusX > 0 ? d.x / ellipse.radiusX : d.x;
    const double y = ellipse.radiusY > 0 ? d.y / ellipse.radiusY : d.y;
    return std::atan2(y, x);
}

Sector SectorOf(const ArcShape& arc) {
    const Box box = Tamed(arc.box);
    Sector sector{box.Centre(), box.Width() / 2, box.Height() / 2, 0, 0};
    sector.start = ParameterOf(sector, Tamed(arc.from));
    const double end = ParameterOf(sector, Tamed(arc.to));
    double sweep = end - sector.start;
    if (arc.direction == ArcDirection::Clockwise) {
        while (sweep <= 1e-9)
            sweep += 2 * Pi;
    } else {
        while (sweep >= -1e-9)
            sweep -= 2 * Pi;
    }
    sector.sweep = sweep;
    return sector;
}

}  // namespace

void AddEllipse(Path& path, const Box& box) {
    const Box b = Tamed(box);
    const Sector all{b.Centre(), b.Width() / 2, b.Height() / 2, 0, 2 * Pi};
    path.MoveTo({b.right, all.centre.y});
    AddCurves(path, all);
    path.Close();
}

void AddRoundBox(Path& path, const Box& box, double cornerWidth, double cornerHeight) {
    const Box b = Tamed(box);
    const double rx = std::min(std::abs(Tamed(cornerWidth)), b.Width()) / 2;
    const double ry = std::min(std::abs(Tamed(cornerHeight)), b.Height()) / 2;
    if (rx == 0 || ry == 0) {
        path.AddBox(b);
        return;
    }
    const auto corner = [&](double x, double y, double start) {
        AddCurves(path, {{x, y}, rx, ry, start, Pi / 2});
    };
    path.MoveTo({b.left + rx, b.top});
    path.LineTo({b.right - rx, b.top});
    corner(b.right - rx, b.top + ry, -Pi / 2);
    path.LineTo({b.right, b.bottom - ry});
    corner(b.right - rx, b.bottom - ry, 0);
    path.LineTo({b.left + rx, b.bottom});
    corner(b.left + rx, b.bottom - ry, Pi / 2);
    path.LineTo({b.left, b.top + ry});
    corner(b.left + rx, b.top + ry, Pi);
    path.Close();
}

void AddArc(Path& path, const ArcShape& arc) {
    const Sector sector = SectorOf(arc);
    path.MoveTo(sector.Start());
    AddCurves(path, sector);
}

void ArcTo(Path& path, const ArcShape& arc) {
    const Sector sector = SectorOf(arc);
    path.LineTo(sector.Start());
    AddCurves(path, sector);
}

void AddPie(Path& path, const ArcShape& arc) {
    const Sector sector = SectorOf(arc);
    path.MoveTo(sector.Start());
    AddCurves(path, sector);
    path.LineTo(sector.centre);
    path.Close();
}

void AddChord(Path& path, const ArcShape& arc) {
    AddArc(path, arc);
    path.Close();
}

void AngleArc(Path& path, Point centre, double radius, double startDegrees, double sweepDegrees) {
    const double r = std::abs(Tamed(radius));
    const double start = std::fmod(Tamed(startDegrees), 360.0);
    const double sweep = std::clamp(Tamed(sweepDegrees), -16.0 * 360, 16.0 * 360);
    const Sector sector{Tamed(centre), r, r, -start * Pi / 180, -sweep * Pi / 180};
    path.LineTo(sector.Start());
    if (sweep != 0) AddCurves(path, sector);
}

}  // namespace tavrix::vector
