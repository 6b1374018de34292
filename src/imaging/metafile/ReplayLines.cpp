#include "imaging/metafile/Figures.h"
#include "imaging/metafile/Replay.h"

namespace tavrix::metafile {
namespace {

vector::Point PositionInPicture(DeviceContext& context) {
    return context.ToPicture().Apply(context.State().position);
}

/// Curves through every third point, from the path's current point on; points left over do not count.
void AddCurves(vector::Path& path, std::span<const vector::Point> points) {
    for (; points.size() >= 3; points = points.subspan(3))
        path.CubicTo(points[0], points[1], points[2]);
}

/// The points behind the current position, from which the first of them is reached.
std::vector<vector::Point> FromPosition(DeviceContext& context, std::span<const Point> points) {
    std::vector<vector::Point> all = ToPicture(context, points);
    all.insert(all.begin(), PositionInPicture(context));
    return all;
}

void LinesTo(DeviceContext& context, std::span<const Point> points) {
    if (points.empty()) return;
    vector::Path path;
    AddLine(context, path, FromPosition(context, points));
    DrawContinuing(context, path);
    context.State().position = ToPoint(points.back());
}

void CurvesTo(DeviceContext& context, std::span<const Point> points) {
    points = points.first(points.size() / 3 * 3);
    if (points.empty()) return;
    vector::Path path;
    path.MoveTo(PositionInPicture(context));
    AddCurves(path, ToPicture(context, points));
    DrawContinuing(context, path);
    context.State().position = ToPoint(points.back());
}

}  // namespace

void Replay(DeviceContext& context, const MoveTo& record) {
    context.State().position = ToPoint(record.to);
    context.Bracket().Interrupt();
}

void Replay(DeviceContext& context, const LineTo& record) {
    LinesTo(context, std::span(&record.to, 1));
}

void Replay(DeviceContext& context, const PolyShape& record) {
    vector::Path path;
    switch (record.kind) {
        case PolyShape::Kind::Polygon:
            path.AddPolygon(ToPicture(context, record.points));
            return DrawClosed(context, path);
        case PolyShape::Kind::Polyline:
            AddLine(context, path, ToPicture(context, record.points));
            return DrawOpen(context, path);
        case PolyShape::Kind::PolylineTo:
            return LinesTo(context, record.points);
        case PolyShape::Kind::BezierTo:
            return CurvesTo(context, record.points);
        case PolyShape::Kind::Bezier: {
            if (record.points.empty()) return;
            const std::vector<vector::Point> points = ToPicture(context, record.points);
            path.MoveTo(points.front());
            AddCurves(path, std::span(points).subspan(1));
            return DrawOpen(context, path);
        }
    }
}

void Replay(DeviceContext& context, const PolyPolyShape& record) {
    const std::vector<vector::Point> points = ToPicture(context, record.points);
    auto rest = std::span(points);
    vector::Path path;
    for (const std::uint32_t count : record.counts) {
        const std::span<const vector::Point> figure = rest.first(count);
        rest = rest.subspan(count);
        if (record.closed) {
            path.AddPolygon(figure);
        } else {
            AddLine(context, path, figure);
        }
    }
    if (record.closed) return DrawClosed(context, path);
    DrawOpen(context, path);
}

void Replay(DeviceContext& context, const PolyDraw& record) {
    constexpr std::uint8_t Closes = 1;
    constexpr std::uint8_t Line = 2;
    constexpr std::uint8_t Curve = 4;
    constexpr std::uint8_t Move = 6;
    const std::vector<vector::Point> points = ToPicture(context, record.points);
    vector::Path path;
    path.MoveTo(PositionInPicture(context));
    vector::Point start = context.State().position;
    vector::Point end = start;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto step = static_cast<std::uint8_t>(record.types[i] & ~Closes);
        if (step == Move) {
            path.MoveTo(points[i]);
            start = ToPoint(record.points[i]);
        } else if (step == Line) {
            path.LineTo(points[i]);
        } else if (step == Curve && i + 2 < points.size()) {
            path.CubicTo(points[i], points[i + 1], points[i + 2]);
            i += 2;
        } else {
            return;
        }
        const bool closes = (record.types[i] & Closes) != 0;
        if (closes) path.Close();
        end = closes ? start : ToPoint(record.points[i]);
    }
    DrawContinuing(context, path);
    context.State().position = end;
}

}  // namespace tavrix::metafile
