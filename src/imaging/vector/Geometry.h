#pragma once

#include <optional>

namespace tavrix::vector {

struct Point {
    double x = 0;
    double y = 0;

    friend constexpr bool operator==(Point, Point) = default;
    friend constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
    friend constexpr Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }
};

/// A rectangle with sides parallel to the axes. The sides may come in any order; where a bitmap is placed, exchanged
/// sides mean that it is mirrored.
struct Box {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    friend constexpr bool operator==(const Box&, const Box&) = default;

    [[nodiscard]] constexpr double Width() const { return right - left; }
    [[nodiscard]] constexpr double Height() const { return bottom - top; }
    [[nodiscard]] constexpr Point Centre() const { return {(left + right) / 2, (top + bottom) / 2}; }
};

/// The largest coordinate that is drawn with, in either direction; what is farther away is moved to it.
inline constexpr double MaxCoordinate = 1 << 30;

/// The coordinate within the limits; 0 for one that is not a number.
[[nodiscard]] double Tamed(double coordinate);
[[nodiscard]] Point Tamed(Point point);
/// The same, with the sides in order.
[[nodiscard]] Box Tamed(const Box& box);

/// An affine map, with the fields in the order of the metafile formats:
/// x' = x * m11 + y * m21 + dx,  y' = x * m12 + y * m22 + dy.
struct Affine {
    double m11 = 1;
    double m12 = 0;
    double m21 = 0;
    double m22 = 1;
    double dx = 0;
    double dy = 0;

    friend constexpr bool operator==(const Affine&, const Affine&) = default;

    /// Maps `from` to `to`, corner by corner, so that boxes with exchanged sides mirror. A side of 0 in `from` maps all
    /// to one line.
    [[nodiscard]] static Affine Between(const Box& from, const Box& to);
    [[nodiscard]] static Affine Shift(double dx, double dy) { return {1, 0, 0, 1, dx, dy}; }
    [[nodiscard]] static Affine Scale(double x, double y) { return {x, 0, 0, y, 0, 0}; }
    /// Turns counter-clockwise as seen where y grows downwards.
    [[nodiscard]] static Affine Turn(double degrees);

    [[nodiscard]] constexpr Point Apply(Point p) const {
        return {p.x * m11 + p.y * m21 + dx, p.x * m12 + p.y * m22 + dy};
    }
    /// Applies to a direction, that is without the shift.
    [[nodiscard]] constexpr Point ApplyToVector(Point p) const {
        return {p.x * m11 + p.y * m21, p.x * m12 + p.y * m22};
    }
    /// This map first, the other one on its result.
    [[nodiscard]] Affine Then(const Affine& other) const;
    [[nodiscard]] constexpr double Determinant() const { return m11 * m22 - m12 * m21; }
    /// Nothing where the map has no inverse or is not made of finite numbers.
    [[nodiscard]] std::optional<Affine> Inverse() const;
    /// Whether boxes stay boxes: no turn but by quarters, no shear.
    [[nodiscard]] bool KeepsBoxes() const;
    /// How much lengths grow, on average over the directions.
    [[nodiscard]] double MeanScale() const;
};

}  // namespace tavrix::vector
