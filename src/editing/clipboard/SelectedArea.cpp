#include "editing/clipboard/SelectedArea.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "editing/resizing/StretchCopy.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

float Positive(float size) {
    if (size <= 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    return size;
}

}  // namespace

SelectedArea::SelectedArea(const Selection& selection)
    : Left(std::min(selection.SelectionStartX, selection.SelectionEndX)),
      Top(std::min(selection.SelectionStartY, selection.SelectionEndY)),
      Right(std::max(selection.SelectionStartX, selection.SelectionEndX)),
      Bottom(std::max(selection.SelectionStartY, selection.SelectionEndY)) {}

void TakeWidthOfSelection(MainViewFrm& view) {
    const SelectedArea area(view.selection);
    view.PictureTemp.Width = Positive(area.Right - area.Left - 2 * view.Module().Screen().TwipsPerPixelX());
}

void TakeHeightOfSelection(MainViewFrm& view) {
    const SelectedArea area(view.selection);
    view.PictureTemp.Height = Positive(area.Bottom - area.Top - 2 * view.Module().Screen().TwipsPerPixelY());
}

void CopySelectionToPictureTemp(MainViewFrm& view, int smaller) {
    const forms::ScreenInfo screen = view.App().Screen().Info();
    const float pixelX = screen.twipsPerPixelX;
    const float pixelY = screen.twipsPerPixelY;
    const SelectedArea area(view.selection);
    const float width = view.PictureTemp.Width;
    const float height = view.PictureTemp.Height;
    const auto less = static_cast<float>(smaller);
    const Picture image = view.MainImage.Image();
    if (image.Empty()) throw RuntimeError(ErrorNumber::InvalidPicture);
    StretchCopy(view.PictureTemp.Bitmap(), 0, 0, width, height, image.pixels->Whole(), area.Left + pixelX,
                area.Top + pixelY, width - less * pixelX, height - less * pixelY, screen);
}

}  // namespace tavrix
