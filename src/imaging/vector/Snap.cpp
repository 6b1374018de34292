#include "imaging/vector/Snap.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tavrix::vector {
namespace {

constexpr double Parallel = 1e-6;
constexpr std::size_t FewPoints = 12;
constexpr double LongLine = 4;

enum class Place : std::uint8_t { Free, OnLine, AtEnd };

/// A point of a figure that lines or curves end at.
struct Knot {
    std::size_t index = 0;  ///< among the points of the path
    bool lineBefore = false;
    bool curveBefore = false;
    Place x = Place::Free;
    Place y = Place::Free;
};

class Snapper {
  public:
    Snapper(const Path& path, const SnapGrid& grid)
        : path_(path), grid_(grid), points_(path.Points().begin(), path.Points().end()) {}

    Path Run() {
        std::size_t next = 0;
        for (const Path::Verb verb : path_.Verbs()) {
            switch (verb) {
                case Path::Verb::Move:
                    EndFigure(false);
                    knots_.push_back({.index = next++});
                    break;
                case Path::Verb::Line:
                    knots_.push_back({.index = next++, .lineBefore = true});
                    break;
                case Path::Verb::Cubic:
                    next += 3;
                    knots_.push_back({.index = next - 1, .curveBefore = true});
                    break;
                case Path::Verb::Close:
                    EndFigure(true);
                    break;
            }
        }
        EndFigure(false);
        return Rebuilt();
    }

  private:
    [[nodiscard]] Point At(const Knot& knot) const { return path_.Points()[knot.index]; }

    void EndFigure(bool closed) {
        const bool ring = closed || grid_.fill;
        if (knots_.size() >= 2) {
            const double shortest = knots_.size() <= FewPoints ? 0 : LongLine;
            for (std::size_t i = 1; i < knots_.size(); ++i)
                if (knots_[i].lineBefore) MarkLine(knots_[i - 1], knots_[i], shortest);
            if (ring) MarkLine(knots_.back(), knots_.front(), shortest);
            if (!ring) MarkEnds();
            // A figure that comes back to its start by a line of its own has that point twice.
            if (ring && At(knots_.front()) == At(knots_.back())) Join(knots_.front(), knots_.back());
        }
        for (const Knot& knot : knots_)
            Move(knot);
        knots_.clear();
    }

    void MarkLine(Knot& a, Knot& b, double shortest) const {
        const Point d = At(b) - At(a);
        const bool horizontal = std::abs(d.y) <= Parallel && std::abs(d.x) > std::max(shortest, Parallel);
        const bool vertical = std::abs(d.x) <= Parallel && std::abs(d.y) > std::max(shortest, Parallel);
        if (horizontal) a.y = b.y = Place::OnLine;
        if (vertical) a.x = b.x = Place::OnLine;
    }

    void MarkEnds() {
        const auto mark = [](Knot& knot) {
            if (knot.y == Place::OnLine && knot.x == Place::Free)
                knot.x = Place::AtEnd;
            else if (knot.x == Place::OnLine && knot.y == Place::Free)
                knot.y = Place::AtEnd;
        };
        mark(knots_.front());
        mark(knots_.back());
    }

    static void Join(Knot& a, Knot& b) {
        a.x = b.x = std::max(a.x, b.x);
        a.y = b.y = std::max(a.y, b.y);
    }

    [[nodiscard]] double Moved(double coordinate, Place place) const {
        switch (place) {
            case Place::OnLine:
                return std::floor(coordinate + 0.5) + grid_.line;
            case Place::AtEnd:
                return std::floor(coordinate + 0.5) + grid_.end;
            case Place::Free:
                break;
        }
        return coordinate + grid_.line;
    }

    void Move(const Knot& knot) {
        const Point old = At(knot);
        const Point moved{Moved(old.x, knot.x), Moved(old.y, knot.y)};
        points_[knot.index] = moved;
        // The control points next to it go along, so that curves keep their direction there.
        const Point by = moved - old;
        if (knot.curveBefore) points_[knot.index - 1] = points_[knot.index - 1] + by;
        if (knot.curveBefore && &knot != &knots_.front()) {
            const Knot& before = *(&knot - 1);
            const Point byBefore = points_[before.index] - At(before);
            points_[knot.index - 2] = points_[knot.index - 2] + byBefore;
        }
    }

    [[nodiscard]] Path Rebuilt() const {
        Path result;
        auto point = points_.begin();
        for (const Path::Verb verb : path_.Verbs()) {
            switch (verb) {
                case Path::Verb::Move:
                    result.MoveTo(*point++);
                    break;
                case Path::Verb::Line:
                    result.LineTo(*point++);
                    break;
                case Path::Verb::Cubic:
                    result.CubicTo(point[0], point[1], point[2]);
                    point += 3;
                    break;
                case Path::Verb::Close:
                    result.Close();
                    break;
            }
        }
        return result;
    }

    const Path& path_;
    SnapGrid grid_;
    std::vector<Point> points_;
    std::vector<Knot> knots_;
};

}  // namespace

Path Snapped(const Path& path, const SnapGrid& grid) {
    return Snapper(path, grid).Run();
}

}  // namespace tavrix::vector
