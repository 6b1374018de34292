#include "viewer/AutomaticSize.h"

#include <algorithm>

#include "viewer/MainViewFrm.h"

namespace tavrix {

WindowSize AutomaticSize(const AutomaticSizeInput& in) {
    const bool narrow = in.imageWidth < MainViewFrm::MinWidth;
    const bool low = in.imageHeight < MainViewFrm::MinHeight;
    // Where only one side is small the other takes the bare size of the image, on purpose.
    if (narrow && low) return {MainViewFrm::MinWidth, MainViewFrm::MinHeight};
    if (narrow) return {MainViewFrm::MinWidth, in.imageHeight};
    if (low) return {in.imageWidth, MainViewFrm::MinHeight};

    const float neededWidth = in.imageWidth + in.frameWidth;
    const float neededHeight = in.imageHeight + in.frameHeight + in.chromeHeight;
    const WindowSize wholeScreen{in.screenWidth, in.screenHeight};
    const bool tooWide = in.screenWidth < neededWidth;
    const bool tooHigh = in.screenHeight < neededHeight;
    if (tooWide && tooHigh) return wholeScreen;
    if (tooWide) {
        const float withBar = neededHeight + MainViewFrm::BarThickness + in.twipsPerPixelX;
        return in.screenHeight < withBar ? wholeScreen : WindowSize{in.screenWidth, withBar};
    }
    if (tooHigh) {
        const float withBar = neededWidth + MainViewFrm::BarThickness + in.twipsPerPixelY;
        return in.screenWidth < withBar ? wholeScreen : WindowSize{withBar, in.screenHeight};
    }
    return {neededWidth + in.twipsPerPixelX, neededHeight + in.twipsPerPixelY};
}

forms::TwipRect KeptInside(const forms::TwipRect& window, const forms::TwipRect& area) {
    forms::TwipRect kept = window;
    kept.width = std::min(window.width, area.width);
    kept.height = std::min(window.height, area.height);
    kept.left = std::clamp(window.left, area.left, area.left + area.width - kept.width);
    kept.top = std::clamp(window.top, area.top, area.top + area.height - kept.height);
    return kept;
}

}  // namespace tavrix
