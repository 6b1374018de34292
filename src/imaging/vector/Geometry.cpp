#include "imaging/vector/Geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tavrix::vector {

double Tamed(double coordinate) {
    if (std::isnan(coordinate)) return 0;
    return std::clamp(coordinate, -MaxCoordinate, MaxCoordinate);
}

Point Tamed(Point point) {
    return {Tamed(point.x), Tamed(point.y)};
}

Box Tamed(const Box& box) {
    const Point a = Tamed(Point{box.left, box.top});
    const Point b = Tamed(Point{box.right, box.bottom});
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

Affine Affine::Between(const Box& from, const Box& to) {
    const double x = from.Width() != 0 ? to.Width() / from.Width() : 0;
    const double y = from.Height() != 0 ? to.Height() / from.Height() : 0;
    return {x, 0, 0, y, to.left - from.left * x, to.top - from.top * y};
}

Affine Affine::Turn(double degrees) {
    if (!std::isfinite(degrees)) return {};
    const double quarters = degrees / 90;
    // Whole quarters without the rounding of sine and cosine, so that boxes stay boxes.
    if (quarters == std::floor(quarters)) {
        constexpr std::array<double, 4> c{1, 0, -1, 0};
        const auto quarter = static_cast<std::size_t>(static_cast<int>(std::fmod(quarters, 4)) + 4) % 4;
        const double s = c[(quarter + 3) % 4];
        return {c[quarter], -s, s, c[quarter], 0, 0};
    }
    const double radians = degrees * std::numbers::pi / 180;
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    return {c, -s, s, c, 0, 0};
}

Affine Affine::Then(const Affine& other) const {
    const Point shift = other.Apply({dx, dy});
    return {m11 * other.m11 + m12 * other.m21,
            m11 * other.m12 + m12 * other.m22,
            m21 * other.m11 + m22 * other.m21,
            m21 * other.m12 + m22 * other.m22,
            shift.x,
            shift.y};
}

std::optional<Affine> Affine::Inverse() const {
    const double determinant = Determinant();
    const double size = std::max({std::abs(m11), std::abs(m12), std::abs(m21), std::abs(m22)});
    if (!std::isfinite(determinant) || !std::isfinite(dx) || !std::isfinite(dy)) return std::nullopt;
    if (!(std::abs(determinant) > size * size * 1e-12)) return std::nullopt;
    const Affine inverse{m22 / determinant,
                         -m12 / determinant,
                         -m21 / determinant,
                         m11 / determinant,
                         (m21 * dy - m22 * dx) / determinant,
                         (m12 * dx - m11 * dy) / determinant};
    const double sum = inverse.m11 + inverse.m12 + inverse.m21 + inverse.m22 + inverse.dx + inverse.dy;
    if (!std::isfinite(sum)) return std::nullopt;
    return inverse;
}

bool Affine::KeepsBoxes() const {
    const auto small = [&](double a, double b) { return std::abs(a) <= 1e-9 * std::abs(b); };
    return (small(m12, m11) && small(m21, m22)) || (small(m11, m12) && small(m22, m21));
}

double Affine::MeanScale() const {
    const double scale = std::sqrt(std::abs(Determinant()));
    return std::isfinite(scale) ? scale : 0;
}

}  // namespace tavrix::vector
