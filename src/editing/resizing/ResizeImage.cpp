#include "editing/resizing/ResizeImage.h"

#include "base/RuntimeError.h"
#include "editing/frame/ScratchPicture.h"
#include "editing/frame/Sizes.h"
#include "editing/resizing/StretchCopy.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

EditResult ResizeImage(MainViewFrm& view, const EditFrame& edit, std::int32_t NewWidth,
                       std::int32_t NewHeight) {
    const forms::ScreenInfo screen = view.App().Screen().Info();
    if (TooSmall(NewWidth, NewHeight, screen)) {
        view.App().MessageBox({.text = "You may not make the current image any smaller..."});
        return EditResult::Refused;
    }
    if (TooLarge(NewWidth, NewHeight, screen)) {
        view.App().MessageBox({.text = "You may not make the current image any larger..."});
        return EditResult::Refused;
    }
    const EditResult result = edit.Redraw([&] {
        const auto width = static_cast<float>(NewWidth);
        const auto height = static_cast<float>(NewHeight);
        SkipFailure([&] { SizeMainImage(view, width, height); });
        // A window that sizes itself has been laid out with the new size; any other is laid out here.
        if (!view.SizesItself()) view.Form_Resize();
        SkipFailure([&] { StretchFromPictureTemp(view, 0, 0, width, height); });
        view.Module().DoEvents();
    });
    view.Module().DoEvents();
    return result;
}

void StretchFromPictureTemp(MainViewFrm& view, float x, float y, float width, float height) {
    StretchCopy(view.MainImage.Bitmap(), x, y, width, height, PixelsOfPictureTemp(view), 0, 0,
                view.PictureTemp.Width, view.PictureTemp.Height, view.App().Screen().Info());
    view.MainImage.Refresh();
}

}  // namespace tavrix
