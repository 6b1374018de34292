#include "editing/turning/RotateMainImage.h"

#include "base/RuntimeError.h"
#include "editing/frame/EditFrame.h"
#include "editing/frame/ScratchPicture.h"
#include "editing/turning/RotatePicture.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void RotateMainImage(MainViewFrm& view, float angle) {
    constexpr int RowsPerRefresh = 27;
    forms::PictureBox& source = view.PictureTemp;
    forms::PictureBox& dest = view.MainImage;
    const RotateGeometry geometry =
        CentresOf(source.Width, source.Height, dest.Width, dest.Height, view.App().Screen().Info());
    RotatePicture(PixelsOfPictureTemp(view), dest.Bitmap(), angle, geometry, [&](int row) {
        if (row % RowsPerRefresh == RowsPerRefresh - 1) dest.Refresh();
        view.Module().DoEvents();
    });
    dest.Refresh();
    view.Module().DoEvents();
}

void MakeRoomForTurn(MainViewFrm& view, float width, float height) {
    SkipFailure([&] { SizeMainImage(view, width, height); });
    view.imageOnShow.LayOut();
}

}  // namespace tavrix
