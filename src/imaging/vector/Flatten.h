#pragma once

#include <cstddef>
#include <vector>

#include "imaging/vector/Path.h"
#include "imaging/vector/Work.h"

namespace tavrix::vector {

/// Figures of lines alone.
struct FlatPath {
    struct Figure {
        std::size_t first = 0;
        std::size_t count = 0;  ///< points; 2 at least
        bool closed = false;
    };

    std::vector<Point> points;
    std::vector<Figure> figures;

    [[nodiscard]] std::span<const Point> PointsOf(const Figure& figure) const {
        return std::span(points).subspan(figure.first, figure.count);
    }
};

/// How far a line may be from the curve that it stands for, in pixels.
inline constexpr double FlatteningError = 0.03;

/// Makes lines of the curves. A curve that lies wholly on one side of `bounds` becomes one line. The number of
/// points is bounded, whatever the curves are like, and paid from the budget.
[[nodiscard]] FlatPath Flatten(const Path& path, const Box& bounds, WorkBudget& budget);

}  // namespace tavrix::vector
