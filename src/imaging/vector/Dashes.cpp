#include "imaging/vector/Dashes.h"

#include <algorithm>
#include <cmath>

namespace tavrix::vector {
namespace {

constexpr std::int64_t DashCost = 200;
/// What goes beyond this is not drawn.
constexpr std::size_t MaxDashPoints = std::size_t{1} << 20U;

/// Where one is in the pattern.
class Phase {
  public:
    explicit Phase(const std::vector<double>& dashes) : dashes_(dashes) {
        for (const double dash : dashes)
            sum_ += dash;
        Restart();
    }

    void Restart() {
        index_ = 0;
        left_ = dashes_[0];
    }
    [[nodiscard]] bool On() const { return index_ % 2 == 0; }
    /// How far it is to the next change.
    [[nodiscard]] double Left() const { return left_; }
    void Change() {
        index_ = (index_ + 1) % dashes_.size();
        left_ = dashes_[index_];
    }
    /// Goes on by less than what is left.
    void GoOn(double length) { left_ -= length; }
    /// Goes on by any length.
    void Skip(double length) {
        length = std::fmod(length, sum_);
        for (std::size_t changes = 0; length >= left_ && changes <= dashes_.size(); ++changes) {
            length -= left_;
            Change();
        }
        left_ = std::max(left_ - length, 0.0);
    }

  private:
    const std::vector<double>& dashes_;
    double sum_ = 0;
    std::size_t index_ = 0;
    double left_ = 0;
};

struct Part {
    double from = 0;
    double to = 0;
};

/// The part of a line (0 to 1) that lies in the box; empty (from >= to) when none does.
Part PartInside(Point a, Point b, const Box& box) {
    Part part{0, 1};
    const auto clip = [&](double start, double delta, double low, double high) {
        if (delta == 0) {
            if (start < low || start > high) part.to = -1;
            return;
        }
        const double t1 = (low - start) / delta;
        const double t2 = (high - start) / delta;
        part.from = std::max(part.from, std::min(t1, t2));
        part.to = std::min(part.to, std::max(t1, t2));
    };
    clip(a.x, b.x - a.x, box.left, box.right);
    clip(a.y, b.y - a.y, box.top, box.bottom);
    return part;
}

class Cutter {
  public:
    Cutter(const std::vector<double>& dashes, double closedStart, const Box& bounds, WorkBudget& budget)
        : phase_(dashes), closedStart_(closedStart), bounds_(bounds), budget_(budget) {}

    FlatPath Run(const FlatPath& path) {
        for (const FlatPath::Figure& figure : path.figures) {
            phase_.Restart();
            if (figure.closed) phase_.Skip(closedStart_);
            const auto points = path.PointsOf(figure);
            for (std::size_t i = 1; i < points.size(); ++i)
                CutLine(points[i - 1], points[i]);
            if (figure.closed) CutLine(points.back(), points.front());
            EndDash();
            if (budget_.Exhausted() || Full()) break;
        }
        return std::move(result_);
    }

  private:
    void CutLine(Point a, Point b) {
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        if (!(length > 0)) return;
        const Part seen = PartInside(a, b, bounds_);
        if (!(seen.from < seen.to)) {
            EndDash();
            phase_.Skip(length);
            return;
        }
        double at = 0;
        if (seen.from > 0) {
            EndDash();
            at = seen.from * length;
            phase_.Skip(at);
        }
        const double end = seen.to < 1 ? seen.to * length : length;
        const auto pointAt = [&](double distance) { return a + (b - a) * (distance / length); };
        if (phase_.On()) Add(pointAt(at));
        while (phase_.Left() < end - at) {
            at += phase_.Left();
            if (phase_.On()) {
                Add(pointAt(at));
                EndDash();
            }
            phase_.Change();
            if (phase_.On()) Add(pointAt(at));
            if (!budget_.Spend(DashCost) || Full()) return;
        }
        phase_.GoOn(end - at);
        if (phase_.On()) Add(seen.to < 1 ? pointAt(end) : b);
        if (seen.to < 1) {
            EndDash();
            phase_.Skip(length - end);
        }
    }

    [[nodiscard]] bool Full() const { return result_.points.size() > MaxDashPoints; }

    void Add(Point point) { result_.points.push_back(point); }

    void EndDash() {
        const std::size_t count = result_.points.size() - first_;
        // A dash of no length is a dot, if the pen's caps make one.
        if (count >= 2)
            result_.figures.push_back({first_, count, false});
        else
            result_.points.resize(first_);
        first_ = result_.points.size();
    }

    Phase phase_;
    double closedStart_;
    Box bounds_;
    WorkBudget& budget_;
    FlatPath result_;
    std::size_t first_ = 0;
};

}  // namespace

FlatPath CutIntoDashes(const FlatPath& path, const std::vector<double>& dashes, double closedStart,
                       const Box& bounds, WorkBudget& budget) {
    return Cutter(dashes, closedStart, bounds, budget).Run(path);
}

}  // namespace tavrix::vector
