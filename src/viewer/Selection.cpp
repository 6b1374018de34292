#include "viewer/Selection.h"

#include <algorithm>

#include "imaging/graphics/Draw.h"
#include "platform/forms/Application.h"
#include "platform/forms/Twips.h"

namespace tavrix {

void Selection::DrawLine(float x1, float y1, float x2, float y2) {
    const forms::ScreenInfo screen = image_.Control::OwnerForm().App().Screen().Info();
    const int left = forms::ToPixels(x1, screen.twipsPerPixelX);
    const int top = forms::ToPixels(y1, screen.twipsPerPixelY);
    const int right = forms::ToPixels(x2, screen.twipsPerPixelX);
    const int bottom = forms::ToPixels(y2, screen.twipsPerPixelY);
    // The drag begins by wiping a rectangle that was never drawn: one without extent leaves no mark.
    if (left == right && top == bottom) return;
    InvertOutline(image_.Bitmap(), left, top, right, bottom);
    drawnOn_ = image_.TimesWiped();
    image_.Refresh();
}

void Selection::Erase() {
    if (SelectionShown && !wiped_) DrawLine(SelectionStartX, SelectionStartY, SelectionEndX, SelectionEndY);
}

void Selection::WipeForMenu() {
    Erase();
    wiped_ = true;
}

void Selection::Drop() {
    Erase();
    SelectionShown = false;
    wiped_ = false;
}

void Selection::Press(const forms::MouseArguments& mouse, bool imageOpen) {
    const bool starts =
        imageOpen && mouse.button == forms::MouseButton::Left && mouse.shift == forms::ShiftMask::Shift;
    SelectionDragging = starts;
    if (!starts) return;
    Erase();
    wiped_ = false;
    SelectionStartX = SelectionEndX = mouse.x;
    SelectionStartY = SelectionEndY = mouse.y;
}

void Selection::Drag(const forms::MouseArguments& mouse) {
    if (mouse.button != forms::MouseButton::Left || !SelectionDragging) return;
    DrawLine(SelectionStartX, SelectionStartY, SelectionEndX, SelectionEndY);
    SelectionEndX = std::max(std::min<float>(mouse.x, image_.Width), 0.0F);
    SelectionEndY = std::max(std::min<float>(mouse.y, image_.Height), 0.0F);
    DrawLine(SelectionStartX, SelectionStartY, SelectionEndX, SelectionEndY);
}

}  // namespace tavrix
