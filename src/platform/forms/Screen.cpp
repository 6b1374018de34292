#include "platform/forms/Screen.h"

#include "platform/forms/Twips.h"

namespace tavrix::forms {

float Screen::Width() const {
    const ScreenInfo info = Info();
    return ToTwips(info.width, info.twipsPerPixelX);
}

float Screen::Height() const {
    const ScreenInfo info = Info();
    return ToTwips(info.height, info.twipsPerPixelY);
}

}  // namespace tavrix::forms
