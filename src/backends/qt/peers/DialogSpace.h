#pragma once

#include <QMargins>

#include "platform/forms/LayoutSolver.h"

class QStyle;

namespace tavrix::qt {

/// What the style leaves free along the edges of a window or a frame.
[[nodiscard]] QMargins DialogMargins(const QStyle& style);

/// The same in device pixels.
[[nodiscard]] forms::PixelInsets ToDevice(const QMargins& margins);

/// All that the style leaves free in a dialog.
[[nodiscard]] forms::LayoutMetrics MetricsOf(const QStyle& style);

}  // namespace tavrix::qt
