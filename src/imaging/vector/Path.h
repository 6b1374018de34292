#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "imaging/vector/Geometry.h"

namespace tavrix::vector {

/// Figures made of lines and cubic Bézier curves, in device pixels: whole numbers are the borders between pixels, so
/// that pixel (3, 5) reaches from (3, 5) to (4, 6). What painters do with a path is told there; see Painter::Stroke for
/// where pens run.
///
/// Any coordinate may be given: each is tamed as it comes in (Geometry.h). Throws nothing but std::bad_alloc.
class Path {
  public:
    enum class Verb : std::uint8_t {
        Move,   ///< one point
        Line,   ///< one point
        Cubic,  ///< three points: two control points and the end
        Close,  ///< no point
    };

    /// Points beyond this number are left away.
    static constexpr std::size_t MaxPoints = std::size_t{1} << 21U;

    /// Starts a figure.
    void MoveTo(Point point);
    /// Lines and curves begin where the figure has come to; without one, or after Close, at the start of the one
    /// before, or at (0, 0).
    void LineTo(Point point);
    void CubicTo(Point control1, Point control2, Point end);
    /// Closes the figure with a line to its start. A figure that is not closed is closed for filling, not for a pen.
    void Close();

    /// A figure of lines, closed or not.
    void AddPolygon(std::span<const Point> points);
    void AddPolyline(std::span<const Point> points);
    /// A closed figure, clockwise on the screen from the left top corner.
    void AddBox(const Box& box);
    void Append(const Path& other);
    void Clear();

    /// Where the next line would begin.
    [[nodiscard]] Point Current() const { return current_; }
    [[nodiscard]] bool Empty() const { return verbs_.empty(); }
    [[nodiscard]] std::span<const Verb> Verbs() const { return verbs_; }
    [[nodiscard]] std::span<const Point> Points() const { return points_; }
    [[nodiscard]] Path Transformed(const Affine& map) const;
    /// The same figures, each run through from its end to its start.
    [[nodiscard]] Path Reversed() const;
    /// The smallest box around all points, control points included; all 0 for an empty path.
    [[nodiscard]] Box Bounds() const;

  private:
    [[nodiscard]] bool RoomFor(std::size_t points) const { return points_.size() + points <= MaxPoints; }
    void BeginIfNeeded();

    std::vector<Verb> verbs_;
    std::vector<Point> points_;
    Point start_;
    Point current_;
    bool open_ = false;  ///< a figure is under way
};

}  // namespace tavrix::vector
