#include "imaging/vector/Stroker.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

#include "imaging/vector/Dashes.h"
#include "imaging/vector/Widen.h"

namespace tavrix::vector {
namespace {

constexpr double Pi = std::numbers::pi;
constexpr std::int64_t PointCost = 100;
/// Miters longer than this many widths are cut off even where the pen's limit allows them.
constexpr double LongestMiter = 1000;
/// What goes beyond this is not drawn.
constexpr std::size_t MaxOutlinePoints = std::size_t{1} << 21U;

double Dot(Point a, Point b) {
    return a.x * b.x + a.y * b.y;
}
double Cross(Point a, Point b) {
    return a.x * b.y - a.y * b.x;
}

/// A line of a figure, in units of the pen.
struct Line {
    Point from;
    Point to;
    double length = 0;
    Point normal;  ///< to the side of the outline that runs along with the line, as long as half the width
};

/// Makes the outline of one figure: along its one side, around the end, and back along the other side.
class OutlineMaker {
  public:
    OutlineMaker(const PenShape& pen, FlatPath& result, WorkBudget& budget)
        : pen_(pen), half_(pen.width / 2), result_(result), budget_(budget) {
        const double deviceRadius = std::max(half_ * pen.toDevice.MeanScale(), 0.1);
        const double cosine = std::clamp(1 - FlatteningError / deviceRadius, -1.0, 1.0);
        arcStep_ = std::clamp(2 * std::acos(cosine), Pi / 64, Pi / 4);
    }

    void Add(std::span<const Point> points, bool closed) {
        MakeLines(points, closed);
        if (lines_.empty()) {
            AddDot(points.front());
            return;
        }
        if (closed && lines_.size() >= 2) {
            AddRing();
            Turn();
            AddRing();
            return;
        }
        AddSide();
        AddCap(lines_.back());
        Turn();
        AddSide();
        AddCap(lines_.back());
        End();
    }

  private:
    void MakeLines(std::span<const Point> points, bool closed) {
        lines_.clear();
        Point from = points.front();
        const auto add = [&](Point to) {
            const Point d = to - from;
            const double length = std::hypot(d.x, d.y);
            if (!(length > 1e-6 * half_)) return;
            lines_.push_back({from, to, length, Point{d.y, -d.x} * (half_ / length)});
            from = to;
        };
        for (const Point point : points.subspan(1))
            add(point);
        if (closed) add(points.front());
    }

    /// The same lines in the other direction.
    void Turn() {
        std::ranges::reverse(lines_);
        for (Line& line : lines_) {
            std::swap(line.from, line.to);
            line.normal = line.normal * -1;
        }
    }

    void AddSide() {
        Emit(lines_.front().from + lines_.front().normal);
        for (std::size_t i = 1; i < lines_.size(); ++i)
            AddJoin(lines_[i - 1], lines_[i]);
        Emit(lines_.back().to + lines_.back().normal);
    }

    void AddRing() {
        for (std::size_t i = 0; i < lines_.size(); ++i)
            AddJoin(lines_[i], lines_[(i + 1) % lines_.size()]);
        End();
    }

    void AddJoin(const Line& a, const Line& b) {
        const Point corner = a.to;
        const double cosine = Dot(a.normal, b.normal) / (half_ * half_);
        const double sine = Cross(a.normal, b.normal) / (half_ * half_);
        if (sine < 0) {
            AddInnerJoin(a, b, cosine);
            return;
        }
        switch (pen_.join) {
            case LineJoin::Round:
                AddArc(corner, a.normal, b.normal);
                return;
            case LineJoin::Miter:
                // The miter is as long as half the width over the cosine of half the turn.
                if (const double limit = std::min(pen_.miterLimit, LongestMiter);
                    2 <= (1 + cosine) * limit * limit) {
                    Emit(corner + Miter(a, b, cosine));
                    return;
                }
                break;
            case LineJoin::Bevel:
                break;
        }
        Emit(corner + a.normal);
        Emit(corner + b.normal);
    }

    [[nodiscard]] static Point Miter(const Line& a, const Line& b, double cosine) {
        return (a.normal + b.normal) * (1 / (1 + cosine));
    }

    void AddInnerJoin(const Line& a, const Line& b, double cosine) {
        const Point corner = a.to;
        // As far as the inner borders are shortened.
        const double shorter = half_ * std::sqrt(std::max((1 - cosine) / (1 + cosine), 0.0));
        if (cosine > -0.999 && shorter <= std::min(a.length, b.length)) {
            Emit(corner + Miter(a, b, cosine));
            return;
        }
        Emit(corner + a.normal);
        Emit(corner);
        Emit(corner + b.normal);
    }

    /// From one normal to another one, the way that the outline turns.
    void AddArc(Point centre, Point from, Point to) {
        Emit(centre + from);
        double angle = std::atan2(Cross(from, to), Dot(from, to));
        if (angle < 0) angle += 2 * Pi;
        const int steps = static_cast<int>(std::ceil(angle / arcStep_));
        for (int i = 1; i < steps; ++i) {
            const double turn = angle * i / steps;
            const double c = std::cos(turn);
            const double s = std::sin(turn);
            Emit(centre + Point{from.x * c - from.y * s, from.x * s + from.y * c});
        }
        Emit(centre + to);
    }

    /// From the one side of the line's end to the other.
    void AddCap(const Line& line) {
        switch (pen_.cap) {
            case LineCap::Flat:
                return;
            case LineCap::Square: {
                const Point forward{-line.normal.y, line.normal.x};
                Emit(line.to + line.normal + forward);
                Emit(line.to - line.normal + forward);
                return;
            }
            case LineCap::Round:
                AddArc(line.to, line.normal, line.normal * -1);
                return;
        }
    }

    void AddDot(Point at) {
        switch (pen_.cap) {
            case LineCap::Flat:
                return;
            case LineCap::Square:
                for (const Point corner : {Point{-1, -1}, Point{1, -1}, Point{1, 1}, Point{-1, 1}})
                    Emit(at + corner * half_);
                break;
            case LineCap::Round:
                AddArc(at, {half_, 0}, {-half_, 0});
                AddArc(at, {-half_, 0}, {half_, 0});
                break;
        }
        End();
    }

    void Emit(Point point) { result_.points.push_back(Tamed(pen_.toDevice.Apply(point))); }

    void End() {
        const std::size_t count = result_.points.size() - first_;
        if (count >= 2) result_.figures.push_back({first_, count, true});
        first_ = result_.points.size();
        budget_.Spend(PointCost * static_cast<std::int64_t>(count));
    }

    const PenShape& pen_;
    double half_;
    double arcStep_ = Pi / 4;
    FlatPath& result_;
    WorkBudget& budget_;
    std::vector<Line> lines_;
    std::size_t first_ = 0;
};

/// Makes the finest line cover the pixels at its ends.
void ReachToBorders(FlatPath& path) {
    const auto reach = [](Point& end, Point inner) {
        const Point d = end - inner;
        const double length = std::hypot(d.x, d.y);
        if (length > 0) end = end + d * (0.5 / length);
    };
    for (const FlatPath::Figure& figure : path.figures) {
        if (figure.closed) continue;
        const auto points = std::span(path.points).subspan(figure.first, figure.count);
        const auto differs = [&](Point end) { return [end](Point point) { return !(point == end); }; };
        const auto second = std::ranges::find_if(points, differs(points.front()));
        if (second == points.end()) {
            points.front().x -= 0.5;
            points.back().x += 0.5;
            continue;
        }
        const auto inner = std::find_if(points.rbegin(), points.rend(), differs(points.back()));
        const Point secondPoint = *second;
        const Point innerPoint = *inner;
        reach(points.front(), secondPoint);
        reach(points.back(), innerPoint);
    }
}

/// The bounds in units of the pen, wide enough for whatever reaches into them.
Box BoundsForPen(const Box& bounds, const PenShape& pen) {
    Path corners;
    corners.AddBox(bounds);
    const Box box = corners.Transformed(pen.toPen).Bounds();
    const double reach = pen.width * std::max(std::min(pen.miterLimit, LongestMiter), 2.0) + 2;
    return {box.left - reach, box.top - reach, box.right + reach, box.bottom + reach};
}

}  // namespace

FlatPath OutlinesOf(const FlatPath& path, const PenShape& pen, const Box& bounds, WorkBudget& budget) {
    FlatPath inPen = path;
    for (Point& point : inPen.points)
        point = pen.toPen.Apply(point);
    if (pen.onePixel) ReachToBorders(inPen);
    if (!pen.dashes.empty()) {
        // Closed figures of one pixel begin in the middle of a pixel, and their dashes end at its border.
        const double start = pen.onePixel ? 0.5 : 0;
        inPen = CutIntoDashes(inPen, pen.dashes, start, BoundsForPen(bounds, pen), budget);
    }
    FlatPath result;
    OutlineMaker maker(pen, result, budget);
    for (const FlatPath::Figure& figure : inPen.figures) {
        maker.Add(inPen.PointsOf(figure), figure.closed);
        if (budget.Exhausted() || result.points.size() > MaxOutlinePoints) break;
    }
    return result;
}

Path Widen(const Path& path, const Pen& pen, const Affine& penToDevice, const Box& bounds,
           WorkBudget& budget) {
    const PenShape shape = ShapeOf(pen, penToDevice);
    const FlatPath outlines = OutlinesOf(Flatten(path, bounds, budget), shape, bounds, budget);
    Path result;
    for (const FlatPath::Figure& figure : outlines.figures)
        result.AddPolygon(outlines.PointsOf(figure));
    return result;
}

}  // namespace tavrix::vector
