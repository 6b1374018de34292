#pragma once

#include "imaging/vector/Path.h"

namespace tavrix::vector {

/// Which way an arc runs on the screen, with y downwards.
enum class ArcDirection { CounterClockwise, Clockwise };

/// The piece of an ellipse that arcs, pies and chords are about: from the ray that goes from the centre of the box
/// through `from` to the ray through `to`. Equal rays mean the whole ellipse.
struct ArcShape {
    Box box;
    Point from;
    Point to;
    ArcDirection direction = ArcDirection::CounterClockwise;
};

// All of these are made of Bézier curves whose distance from the true ellipse is below 0.03 % of its radius. Boxes may
// be given in logical units and the path be transformed afterwards. They throw nothing but std::bad_alloc.

/// A closed ellipse that touches the sides of the box.
void AddEllipse(Path& path, const Box& box);
/// A closed box with rounded corners; the width and height of the ellipse that the corners are quarters of.
void AddRoundBox(Path& path, const Box& box, double cornerWidth, double cornerHeight);
/// A figure of its own that stays open.
void AddArc(Path& path, const ArcShape& arc);
/// A line from the current point to the start of the arc, then the arc; the figure stays open.
void ArcTo(Path& path, const ArcShape& arc);
/// The arc, the line to the centre, and back; closed.
void AddPie(Path& path, const ArcShape& arc);
/// The arc and the line between its ends; closed.
void AddChord(Path& path, const ArcShape& arc);
/// A line from the current point to the start of an arc of a circle, then the arc; the figure stays open. Degrees,
/// counter-clockwise on the screen from the right; a sweep beyond ±360 runs round as often as it says, at most 16
/// times.
void AngleArc(Path& path, Point centre, double radius, double startDegrees, double sweepDegrees);

}  // namespace tavrix::vector
