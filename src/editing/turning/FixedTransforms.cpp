#include "editing/turning/FixedTransforms.h"

#include <string>

#include "base/RuntimeError.h"
#include "editing/frame/EditFrame.h"
#include "editing/frame/Sizes.h"
#include "editing/resizing/StretchCopy.h"
#include "editing/turning/RotateMainImage.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr double HalfPi = 3.14159265359 / 2;

forms::ScreenInfo ScreenOf(const MainViewFrm& view) {
    return view.App().Screen().Info();
}

enum class Sides { Kept, Swapped };

void RotateFixed(MainViewFrm& view, const std::string& undoCaption, float angle, Sides sides) {
    RunEdit(view, undoCaption, [&] {
        const float width = view.PictureTemp.Width;
        const float height = view.PictureTemp.Height;
        const bool swapped = sides == Sides::Swapped;
        SkipFailure([&] { SizeMainImage(view, swapped ? height : width, swapped ? width : height); });
        view.Form_Resize();
        view.ScrollHome();
        SkipFailure([&] { RotateMainImage(view, angle); });
    });
}

/// Copies the whole of PictureTemp to a place of MainImage; all in twips.
void CopyFromPictureTemp(MainViewFrm& view, float x, float y, float width, float height) {
    StretchCopy(view.MainImage.Bitmap(), x, y, width, height, PixelsOfPictureTemp(view), 0, 0,
                view.PictureTemp.Width, view.PictureTemp.Height, ScreenOf(view));
    view.MainImage.Refresh();
}

void Flip(MainViewFrm& view, const std::string& undoCaption, bool across) {
    RunEdit(view, undoCaption, [&] {
        const float width = view.PictureTemp.Width;
        const float height = view.PictureTemp.Height;
        SkipFailure([&] {
            if (across) {
                CopyFromPictureTemp(view, width, 0, -width, height);
            } else {
                CopyFromPictureTemp(view, 0, height, width, -height);
            }
        });
        view.Module().DoEvents();
    });
}

void ResizeByPart(MainViewFrm& view, const std::string& undoCaption, double part) {
    RunEditCommand(view, undoCaption, [&] {
        SkipFailure([&] {
            ResizeImage(view, LargerBy(view.MainImage.Width, part), LargerBy(view.MainImage.Height, part));
        });
    });
}

}  // namespace

void mnu90CW_Click(MainViewFrm& view) {
    RotateFixed(view, "&Undo Rotate 90° CW", static_cast<float>(-HalfPi), Sides::Swapped);
}

void mnu90CCW_Click(MainViewFrm& view) {
    RotateFixed(view, "&Undo Rotate 90° CCW", static_cast<float>(HalfPi), Sides::Swapped);
}

void mnu180Degrees_Click(MainViewFrm& view) {
    RotateFixed(view, "&Undo Rotate 180°", 3.1415927F, Sides::Kept);
}

void mnuFlipHorizontal_Click(MainViewFrm& view) {
    Flip(view, "&Undo Flip Horizontally", true);
}

void mnuFlipVertically_Click(MainViewFrm& view) {
    Flip(view, "&Undo Flip Vertically", false);
}

void mnu25Smaller_Click(MainViewFrm& view) {
    ResizeByPart(view, "&Undo Resize 25% Smaller", -0.25);
}

void mnu25Larger_Click(MainViewFrm& view) {
    ResizeByPart(view, "&Undo Resize 25% Larger", 0.25);
}

void mnu50Smaller_Click(MainViewFrm& view) {
    ResizeByPart(view, "&Undo Resize 50% Smaller", -0.5);
}

void mnu50Larger_Click(MainViewFrm& view) {
    ResizeByPart(view, "&Undo Resize 50% Larger", 0.5);
}

void ResizeImage(MainViewFrm& view, std::int32_t NewWidth, std::int32_t NewHeight) {
    const MainModule& module = view.Module();
    if (TooSmall(NewWidth, NewHeight, ScreenOf(view))) {
        view.App().MessageBox({.text = "You may not make the current image any smaller..."});
        return;
    }
    if (TooLarge(NewWidth, NewHeight, ScreenOf(view))) {
        view.App().MessageBox({.text = "You may not make the current image any larger..."});
        return;
    }
    TakeToPictureTemp(view);
    const auto width = static_cast<float>(NewWidth);
    const auto height = static_cast<float>(NewHeight);
    SkipFailure([&] { SizeMainImage(view, width, height); });
    // A window that sizes itself has been laid out with the new size; any other is laid out here.
    if (!view.SizesItself()) view.Form_Resize();
    SkipFailure([&] { CopyFromPictureTemp(view, 0, 0, width, height); });
    module.DoEvents();
    ClearPictureTemp(view);
    module.DoEvents();
    CommitEdit(view);
}

}  // namespace tavrix
