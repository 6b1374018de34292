#pragma once

#include <QCursor>

#include "imaging/graphics/Surface.h"
#include "platform/forms/Events.h"

class QWidget;

namespace tavrix::qt {

[[nodiscard]] Qt::CursorShape ShapeOf(forms::MousePointer pointer);

/// A pointer that looks like this picture, in device pixels.
[[nodiscard]] QCursor PicturePointer(const Surface& pixels, int hotX, int hotY);

/// Gives a widget its pointer; Default takes it away again.
void SetWidgetPointer(QWidget& widget, forms::MousePointer pointer);

/// The pointer over all windows.
class ScreenPointer {
  public:
    void Set(forms::MousePointer pointer);
    /// A window has been painted. Before that no cursor is loaded, since it would delay the first picture.
    void WindowsAreUp();
    /// A box is open, which shows a usable pointer whatever is set.
    void BoxOpened();
    void BoxClosed();
    /// A window on the screen hides the pointer over itself, or does so no longer. The pointer over all windows would
    /// show there.
    void WindowHides(bool hides);

  private:
    void Apply();

    forms::MousePointer wanted_ = forms::MousePointer::Default;
    forms::MousePointer shown_ = forms::MousePointer::Default;
    bool windowsAreUp_ = false;
    int openBoxes_ = 0;
    int hidingWindows_ = 0;
};

}  // namespace tavrix::qt
