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
