#include "platform/forms/Mouse.h"

#include "platform/forms/Twips.h"

namespace tavrix::forms {

MouseArguments InTwips(const MouseEvent& event, const ScreenInfo& screen) {
    return {event.button, event.shift, ToTwips(event.x, screen.twipsPerPixelX),
            ToTwips(event.y, screen.twipsPerPixelY), event.row};
}

void MouseHandlers::Raise(const MouseEvent& event, const ScreenInfo& screen) const {
    const auto& handler = event.action == MouseAction::Down   ? OnMouseDown
                          : event.action == MouseAction::Move ? OnMouseMove
                                                              : OnMouseUp;
    if (handler) handler(InTwips(event, screen));
}

}  // namespace tavrix::forms
