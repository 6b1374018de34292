#include "imaging/vector/Flatten.h"

#include <algorithm>
#include <cmath>

#include "imaging/vector/Widen.h"

namespace tavrix::vector {
namespace {

constexpr int MaxLinesOfCurve = 500;
/// From here on each curve is one line.
constexpr std::size_t MaxFlatPoints = Path::MaxPoints;
constexpr std::int64_t PointCost = 24;

struct Cubic {
    Point a, b, c, d;

    [[nodiscard]] Point At(double t) const {
        const double s = 1 - t;
        return a * (s * s * s) + b * (3 * s * s * t) + c * (3 * s * t * t) + d * (t * t * t);
    }
    [[nodiscard]] bool Beside(const Box& box) const {
        const auto [left, right] = std::minmax({a.x, b.x, c.x, d.x});
        const auto [top, bottom] = std::minmax({a.y, b.y, c.y, d.y});
        return right < box.left || left > box.right || bottom < box.top || top > box.bottom;
    }
    [[nodiscard]] int Lines() const {
        // The second derivative is 6 times the larger of these, and a line of 1/n of the curve is no farther off
        // than an eighth of it over n squared.
        const Point p = a - b * 2 + c;
        const Point q = b - c * 2 + d;
        const double bend = std::max(std::hypot(p.x, p.y), std::hypot(q.x, q.y));
        const double lines = std::ceil(std::sqrt(0.75 * bend / FlatteningError));
        return static_cast<int>(std::clamp(lines, 1.0, double{MaxLinesOfCurve}));
    }
};

class Flattener {
  public:
    Flattener(const Box& bounds, WorkBudget& budget) : bounds_(bounds), budget_(budget) {}

    FlatPath Run(const Path& path) {
        flat_.points.reserve(path.Points().size());
        auto point = path.Points().begin();
        for (const Path::Verb verb : path.Verbs()) {
            switch (verb) {
                case Path::Verb::Move:
                    EndFigure(false);
                    flat_.points.push_back(*point++);
                    break;
                case Path::Verb::Line:
                    flat_.points.push_back(*point++);
                    break;
                case Path::Verb::Cubic:
                    AddCurve({flat_.points.back(), point[0], point[1], point[2]});
                    point += 3;
                    break;
                case Path::Verb::Close:
                    EndFigure(true);
                    break;
            }
            if (!budget_.Spend(PointCost)) break;
        }
        EndFigure(false);
        return std::move(flat_);
    }

  private:
    void AddCurve(const Cubic& curve) {
        const bool whole = curve.Beside(bounds_) || flat_.points.size() >= MaxFlatPoints;
        const int lines = whole ? 1 : curve.Lines();
        for (int i = 1; i < lines; ++i)
            flat_.points.push_back(curve.At(double{1} * i / lines));
        flat_.points.push_back(curve.d);
        budget_.Spend(PointCost * lines);
    }

    void EndFigure(bool closed) {
        const std::size_t count = flat_.points.size() - first_;
        if (count >= 2) {
            flat_.figures.push_back({first_, count, closed});
        } else if (count == 1 && closed) {
            flat_.points.push_back(flat_.points.back());
            flat_.figures.push_back({first_, 2, false});
        } else {
            flat_.points.resize(first_);
        }
        first_ = flat_.points.size();
    }

    Box bounds_;
    WorkBudget& budget_;
    FlatPath flat_;
    std::size_t first_ = 0;
};

}  // namespace

FlatPath Flatten(const Path& path, const Box& bounds, WorkBudget& budget) {
    return Flattener(bounds, budget).Run(path);
}

Path Flattened(const Path& path) {
    WorkBudget unlimited;
    const Box everywhere{-MaxCoordinate, -MaxCoordinate, MaxCoordinate, MaxCoordinate};
    const FlatPath flat = Flatten(path, everywhere, unlimited);
    Path result;
    for (const FlatPath::Figure& figure : flat.figures) {
        result.AddPolyline(flat.PointsOf(figure));
        if (figure.closed) result.Close();
    }
    return result;
}

}  // namespace tavrix::vector
