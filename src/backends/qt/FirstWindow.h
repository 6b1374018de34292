#pragma once

#include <QEvent>
#include <functional>

namespace tavrix::qt {

/// Has work done once, soon after the first event of a kind came to any widget. With QEvent::Show that is while the window
/// manager looks at the first window, with QEvent::Paint when the first picture has been handed to the screen.
void AfterFirst(QEvent::Type kind, std::function<void()> work);

}  // namespace tavrix::qt
