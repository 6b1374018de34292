#pragma once

class QWidget;

namespace tavrix::qt {

/// Gives a window that has just been shown what it is painted in, and the pages of that, while the window manager still looks
/// at it: by the time it is told to paint there is only the painting left. Nothing is done where it has what fits its size,
/// and where it has no native window yet.
void PrepareToPaint(QWidget& window);

}  // namespace tavrix::qt
