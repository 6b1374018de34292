#include "editing/frame/ScratchPicture.h"

#include "base/RuntimeError.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void CopyToPictureTemp(MainViewFrm& view) {
    SkipFailure([&] { view.PictureTemp.Picture = view.MainImage.Image(); });
    view.Module().DoEvents();
}

const Surface& PixelsOfPictureTemp(MainViewFrm& view) {
    const Picture& picture = view.PictureTemp.Picture;
    if (picture.Empty()) throw RuntimeError(ErrorNumber::InvalidPicture);
    return picture.pixels->Whole();
}

Picture ImageOfPictureTemp(MainViewFrm& view) {
    Picture image = view.PictureTemp.Image();
    if (image.Empty()) throw RuntimeError(ErrorNumber::InvalidPicture);
    return image;
}

void ClearPictureTemp(MainViewFrm& view) {
    view.PictureTemp.Picture = Picture();
    view.PictureTemp.Move(view.PictureTemp.Left, view.PictureTemp.Top, 0, 0);
}

}  // namespace tavrix
