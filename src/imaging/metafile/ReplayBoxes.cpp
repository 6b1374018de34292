#include <algorithm>
#include <cmath>
#include <utility>

#include "imaging/metafile/Figures.h"
#include "imaging/metafile/Replay.h"
#include "imaging/vector/Arcs.h"

namespace tavrix::metafile {
namespace {

/// A box as its border runs, and the map that brings it to the picture.
struct PlacedBox {
    vector::Box box;
    vector::Affine toPicture;
};

/// The border of an enhanced metafile's box runs through its corners. That of a plain one's leaves away the last column
/// and row of pixels, which only the picture has, so that it is told in its pixels.
PlacedBox BorderOf(DeviceContext& context, const Box& box) {
    const vector::Affine map = context.ToPicture();
    const vector::Point first = ToPoint(Point{box.left, box.top});
    const vector::Point second = ToPoint(Point{box.right, box.bottom});
    if (context.Place().enhanced) return {{first.x, first.y, second.x, second.y}, map};
    const vector::Point a = map.Apply(first);
    const vector::Point b = map.Apply(second);
    vector::Box placed{std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
    placed.right = std::max(placed.right - 1, placed.left);
    placed.bottom = std::max(placed.bottom - 1, placed.top);
    return {placed, {}};
}

/// The box that the pen runs along: further inside for a pen that stays in its frame. A border names the pixels that it
/// runs through, so that a pen of one pixel is inside already.
vector::Box Framed(const PlacedBox& placed, const DrawingPen& pen) {
    if (!pen.insideFrame) return placed.box;
    const double scale = placed.toPicture.MeanScale();
    const double pixels = std::max(pen.pen.width * pen.toPicture.MeanScale() - 1, 0.0);
    return vector::InsideFrame(placed.box, scale > 0 ? pixels / scale : 0);
}

vector::Path BoxPath(const vector::Box& box) {
    vector::Path path;
    path.AddBox(box);
    return path;
}

vector::ArcDirection DirectionOf(DeviceContext& context) {
    return context.State().clockwiseArcs ? vector::ArcDirection::Clockwise
                                         : vector::ArcDirection::CounterClockwise;
}

vector::ArcShape ArcOf(DeviceContext& context, const ArcShape& record, const PlacedBox& placed) {
    vector::ArcShape arc{placed.box, ToPoint(record.start), ToPoint(record.end), DirectionOf(context)};
    if (!context.Place().enhanced) {
        arc.from = context.ToPicture(record.start);
        arc.to = context.ToPicture(record.end);
    }
    return arc;
}

/// Where a path has come to, in logical units.
void MovePosition(DeviceContext& context, vector::Point inPicture) {
    if (const auto back = context.ToPicture().Inverse()) context.State().position = back->Apply(inPicture);
}

}  // namespace

void Replay(DeviceContext& context, const BoxShape& record) {
    const PlacedBox placed = BorderOf(context, record.box);
    const DrawingPen pen = SelectedPen(context);
    const vector::Box box = Framed(placed, pen);
    vector::Path path;
    if (record.kind == BoxShape::Kind::Ellipse) {
        vector::AddEllipse(path, box);
    } else {
        path = BoxPath(box);
    }
    DrawClosed(context, path.Transformed(placed.toPicture), pen);
}

void Replay(DeviceContext& context, const RoundBox& record) {
    const PlacedBox placed = BorderOf(context, record.box);
    const DrawingPen pen = SelectedPen(context);
    vector::Point corner = ToPoint(record.corner);
    if (!context.Place().enhanced) corner = context.ToPicture().ApplyToVector(corner);
    vector::Path path;
    vector::AddRoundBox(path, Framed(placed, pen), std::abs(corner.x), std::abs(corner.y));
    DrawClosed(context, path.Transformed(placed.toPicture), pen);
}

void Replay(DeviceContext& context, const ArcShape& record) {
    const PlacedBox placed = BorderOf(context, record.box);
    const vector::ArcShape arc = ArcOf(context, record, placed);
    vector::Path path;
    switch (record.kind) {
        case ArcShape::Kind::Arc:
            vector::AddArc(path, arc);
            return DrawOpen(context, path.Transformed(placed.toPicture));
        case ArcShape::Kind::Chord:
            vector::AddChord(path, arc);
            return DrawClosed(context, path.Transformed(placed.toPicture));
        case ArcShape::Kind::Pie:
            vector::AddPie(path, arc);
            return DrawClosed(context, path.Transformed(placed.toPicture));
        case ArcShape::Kind::ArcTo: {
            path.MoveTo(context.State().position);
            vector::ArcTo(path, arc);
            const vector::Path drawn = path.Transformed(placed.toPicture);
            DrawContinuing(context, drawn);
            return MovePosition(context, drawn.Current());
        }
    }
}

void Replay(DeviceContext& context, const AngleArc& record) {
    vector::Path path;
    path.MoveTo(context.State().position);
    vector::AngleArc(path, ToPoint(record.centre), record.radius, record.start, record.sweep);
    const vector::Path drawn = path.Transformed(context.ToPicture());
    DrawContinuing(context, drawn);
    MovePosition(context, drawn.Current());
}

}  // namespace tavrix::metafile
