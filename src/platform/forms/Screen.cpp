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

TwipRect Screen::UsableArea() const {
    const ScreenInfo info = toolkit_.Screen();
    const PixelRect area = toolkit_.UsableArea();
    return {ToTwips(area.left, info.twipsPerPixelX), ToTwips(area.top, info.twipsPerPixelY),
            ToTwips(area.width, info.twipsPerPixelX), ToTwips(area.height, info.twipsPerPixelY)};
}

}  // namespace tavrix::forms
