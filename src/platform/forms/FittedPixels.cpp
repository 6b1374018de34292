#include "platform/forms/FittedPixels.h"

namespace tavrix::forms {

bool FittedPixels::Shrinks(int width, int height, const PixelRect& bounds) {
    return bounds.width > 0 && bounds.height > 0 && bounds.width <= width && bounds.height <= height &&
           (bounds.width < width || bounds.height < height);
}

CanvasView FittedPixels::View(const Surface& pixels, int ready, const PixelRect& bounds, bool transparent) {
    CanvasView view;
    view.place = {0, 0, bounds.width, bounds.height};
    if (!Shrinks(pixels.Width(), pixels.Height(), bounds)) {
        view.pixels = &pixels;
        view.transparent = transparent;
        return view;
    }
    if (!shrunk_) shrunk_.emplace(pixels.Width(), pixels.Height(), bounds.width, bounds.height);
    shrunk_->Take(pixels, ready);
    view.pixels = &shrunk_->Copy();
    view.transparent = transparent || !shrunk_->Whole();
    return view;
}

}  // namespace tavrix::forms
