#include "imaging/metafile/Figures.h"

#include <algorithm>
#include <cmath>

namespace tavrix::metafile {
namespace {

/// The end of a line without its last pixel; its start where there is no more than one.
vector::Point BeforeLast(vector::Point from, vector::Point to) {
    const vector::Point way = to - from;
    const double pixels = std::max(std::abs(way.x), std::abs(way.y));
    return pixels > 1 ? to - way * (1 / pixels) : from;
}

}  // namespace

void DrawClosed(DeviceContext& context, const vector::Path& figures, const DrawingPen& pen) {
    if (context.Bracket().Open()) return context.Bracket().Add(figures);
    context.Painter().FillAndStroke(figures, context.State().fillRule, SelectedBrush(context), pen.pen,
                                    pen.toPicture, context.Operation());
}

void DrawClosed(DeviceContext& context, const vector::Path& figures) {
    if (context.Bracket().Open()) return context.Bracket().Add(figures);
    DrawClosed(context, figures, SelectedPen(context));
}

void DrawOpen(DeviceContext& context, const vector::Path& figures) {
    if (context.Bracket().Open()) return context.Bracket().Add(figures);
    const DrawingPen pen = SelectedPen(context);
    context.Painter().Stroke(figures, pen.pen, pen.toPicture, context.Operation());
}

void DrawContinuing(DeviceContext& context, const vector::Path& figure) {
    if (context.Bracket().Open()) return context.Bracket().Continue(figure);
    DrawOpen(context, figure);
}

void AddLine(DeviceContext& context, vector::Path& path, std::span<const vector::Point> points) {
    if (points.size() < 2 || context.Bracket().Open() || !SelectedPen(context).endsBeforeLast)
        return path.AddPolyline(points);
    path.AddPolyline(points.first(points.size() - 1));
    path.LineTo(BeforeLast(points[points.size() - 2], points.back()));
}

std::vector<vector::Point> ToPicture(const DeviceContext& context, std::span<const Point> points) {
    const vector::Affine map = context.ToPicture();
    std::vector<vector::Point> mapped;
    mapped.reserve(points.size());
    for (const Point point : points)
        mapped.push_back(map.Apply(ToPoint(point)));
    return mapped;
}

}  // namespace tavrix::metafile
