#pragma once

#include <functional>

#include "platform/forms/Events.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::forms {

/// A mouse event in twips of the control.
struct MouseArguments {
    int button = 0;
    int shift = 0;
    float x = 0;
    float y = 0;
    int row =
        -1;  ///< of a list: the row under the point; while the left button is held, the nearest one. -1: none
};

class Control;

/// A control is let go over another one, or over the form.
struct DragArguments {
    Control& source;
    float x = 0;   ///< twips of the control that it is dropped on
    float y = 0;   ///< likewise
    int row = -1;  ///< of a list: the row under the pointer; -1: below the last one
};

[[nodiscard]] MouseArguments InTwips(const MouseEvent& event, const ScreenInfo& screen);

/// The handlers of a control for each single move of the mouse.
struct MouseHandlers {
    std::function<void(const MouseArguments&)> OnMouseDown;
    std::function<void(const MouseArguments&)> OnMouseMove;
    std::function<void(const MouseArguments&)> OnMouseUp;

  protected:
    void Raise(const MouseEvent& event, const ScreenInfo& screen) const;
};

}  // namespace tavrix::forms
