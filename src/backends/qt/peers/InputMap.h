#pragma once

#include <QKeyEvent>
#include <QMouseEvent>

#include "platform/forms/Events.h"

namespace tavrix::qt {

/// The classic virtual code of a key. Keys of another script have that of the same key on a Latin layout, and keys
/// without a code have KeyCode::Other.
[[nodiscard]] int VirtualKeyCode(const QKeyEvent& event);
/// The shift mask that belongs to a key event; a shift key that goes down counts itself.
[[nodiscard]] int ShiftMaskOf(const QKeyEvent& event);
[[nodiscard]] int ShiftMaskOf(Qt::KeyboardModifiers modifiers);

/// The button of a press or release; 0 for one that forms do not know.
[[nodiscard]] int ButtonOf(Qt::MouseButton button);
[[nodiscard]] int ButtonMaskOf(Qt::MouseButtons buttons);

}  // namespace tavrix::qt
