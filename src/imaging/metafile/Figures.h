#pragma once

#include <span>
#include <vector>

#include "imaging/metafile/Tools.h"
#include "imaging/vector/Path.h"

namespace tavrix::metafile {

// What becomes of a figure, in pixels of the picture: inside a path bracket it becomes a part of the path, otherwise it
// is drawn at once with the selected tools.

/// Filled, and drawn along.
void DrawClosed(DeviceContext& context, const vector::Path& figures);
void DrawClosed(DeviceContext& context, const vector::Path& figures, const DrawingPen& pen);
/// Drawn along.
void DrawOpen(DeviceContext& context, const vector::Path& figures);
/// Drawn along, and in a path bracket joined to what ended at the current position.
void DrawContinuing(DeviceContext& context, const vector::Path& figure);

/// Adds a line to the path. Outside a path bracket a thin pen leaves the last pixel of the line away.
void AddLine(DeviceContext& context, vector::Path& path, std::span<const vector::Point> points);

[[nodiscard]] std::vector<vector::Point> ToPicture(const DeviceContext& context,
                                                   std::span<const Point> points);
[[nodiscard]] inline vector::Point ToPoint(Point point) {
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

}  // namespace tavrix::metafile
