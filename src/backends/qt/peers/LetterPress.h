#pragma once

#include <QShortcutEvent>

namespace tavrix::qt {

/// Whether an event is the press of a button's letter. Qt would hold the button down for a tenth of a second before it acts:
/// in that time the next key may press the window's default button, and what the button is to stop goes on.
[[nodiscard]] inline bool IsLetterPress(const QEvent& event) {
    return event.type() == QEvent::Shortcut && !static_cast<const QShortcutEvent&>(event).isAmbiguous();
}

}  // namespace tavrix::qt
