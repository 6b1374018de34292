#include "imaging/vector/Rasteriser.h"

#include <algorithm>
#include <cmath>

#include "imaging/vector/AreaRow.h"

namespace tavrix::vector {

Rasteriser::Rasteriser(const PixelRect& bounds, WorkBudget& budget) : bounds_(bounds), budget_(budget) {}

void Rasteriser::Add(const FlatPath& path) {
    if (bounds_.width <= 0 || bounds_.height <= 0) return;
    for (const FlatPath::Figure& figure : path.figures) {
        const auto points = path.PointsOf(figure);
        if (!budget_.Spend(static_cast<std::int64_t>(points.size()) * 50)) return;
        for (std::size_t i = 1; i < points.size(); ++i)
            AddEdge(points[i - 1], points[i]);
        AddEdge(points.back(), points.front());
    }
}

void Rasteriser::AddEdge(Point from, Point to) {
    const Point corner{double(bounds_.left), double(bounds_.top)};
    from = from - corner;
    to = to - corner;
    if (from.y < to.y)
        AddClipped(from, to, 1);
    else if (to.y < from.y)
        AddClipped(to, from, -1);
}

void Rasteriser::AddClipped(Point top, Point bottom, int winding) {
    const double width = bounds_.width;
    const double height = bounds_.height;
    if (bottom.y <= 0 || top.y >= height) return;
    const double slope = (bottom.x - top.x) / (bottom.y - top.y);
    const auto xAt = [&](double y) { return top.x + (y - top.y) * slope; };
    const double first = std::max(top.y, 0.0);
    const double last = std::min(bottom.y, height);

    // Left of the bounds only the winding matters, so that the border runs along them there; right of them, nothing
    // does.
    const auto add = [&](double from, double to, bool beside) {
        if (!(from < to)) return;
        if (beside)
            edges_.push_back({0, from, to, 0, winding});
        else
            edges_.push_back({std::clamp(xAt(from), 0.0, width), from, to, slope, winding});
    };
    const double xFirst = xAt(first);
    const double xLast = xAt(last);
    const auto yAt = [&](double x) { return std::clamp(top.y + (x - top.x) / slope, first, last); };
    if (slope == 0 || (std::min(xFirst, xLast) >= 0 && std::max(xFirst, xLast) <= width)) {
        if (xFirst < width || xLast < width) add(first, last, slope == 0 && xFirst < 0);
    } else if (slope > 0) {
        const double enter = xFirst < 0 ? yAt(0) : first;
        const double leave = xLast > width ? yAt(width) : last;
        add(first, std::min(enter, last), true);
        add(enter, leave, false);
    } else {
        const double enter = xFirst > width ? yAt(width) : first;
        const double leave = xLast < 0 ? yAt(0) : last;
        add(enter, leave, false);
        add(std::max(leave, first), last, true);
    }
}

template <class RowScanner>
void Rasteriser::ScanRows(RowScanner scanRow) {
    std::ranges::sort(edges_, {}, &Edge::top);
    std::vector<Edge> active;
    std::size_t next = 0;
    int y = 0;
    while (next < edges_.size() || !active.empty()) {
        if (active.empty()) y = std::max(y, static_cast<int>(edges_[next].top));
        while (next < edges_.size() && edges_[next].top < y + 1)
            active.push_back(edges_[next++]);
        if (!budget_.Spend(32 + 16 * static_cast<std::int64_t>(active.size()))) return;
        scanRow(y, std::span<const Edge>(active));
        ++y;
        std::erase_if(active, [&](const Edge& edge) { return edge.bottom <= y; });
    }
}

void Rasteriser::ScanAreas(FillRule rule, CoverageSink& sink) {
    if (edges_.empty()) return;
    const double width = bounds_.width;
    AreaRow row(bounds_.width);
    ScanRows([&](int y, std::span<const Edge> active) {
        for (const Edge& edge : active) {
            const double top = std::max(edge.top, double(y));
            const double bottom = std::min(edge.bottom, double(y + 1));
            row.Add(std::clamp(edge.At(top), 0.0, width), std::clamp(edge.At(bottom), 0.0, width),
                    (bottom - top) * edge.winding);
        }
        if (!budget_.Spend(row.TakeCost())) {
            row.Clear();
            return;
        }
        row.Tell(rule, [&](int x, int count, std::uint8_t coverage) {
            sink.Run(bounds_.top + y, bounds_.left + x, count, coverage);
        });
    });
}

void Rasteriser::ScanCentres(FillRule rule, CoverageSink& sink) {
    if (edges_.empty()) return;
    AreaRow row(bounds_.width);
    ScanRows([&](int y, std::span<const Edge> active) {
        const double centre = y + 0.5;
        for (const Edge& edge : active) {
            if (centre < edge.top || centre >= edge.bottom) continue;
            const double column = std::ceil(edge.At(centre) - 0.5);
            row.AddWhole(static_cast<int>(std::clamp(column, 0.0, double(bounds_.width))), edge.winding);
        }
        row.Tell(rule, [&](int x, int count, std::uint8_t coverage) {
            sink.Run(bounds_.top + y, bounds_.left + x, count, coverage);
        });
    });
}

}  // namespace tavrix::vector
