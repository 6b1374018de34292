#include "editing/turning/FixedTransforms.h"

#include "base/RuntimeError.h"
#include "editing/frame/EditFrame.h"
#include "editing/frame/Sizes.h"
#include "editing/resizing/ResizeImage.h"
#include "editing/turning/RotateMainImage.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr double HalfPi = 3.14159265359 / 2;

enum class Sides { Kept, Swapped };

void RotateFixed(MainViewFrm& view, const EditWords& words, float angle, Sides sides) {
    const EditFrame edit(view, words);
    edit.RunFromMenu([&] {
        return edit.Redraw([&] {
            const float width = view.PictureTemp.Width;
            const float height = view.PictureTemp.Height;
            const bool swapped = sides == Sides::Swapped;
            MakeRoomForTurn(view, swapped ? height : width, swapped ? width : height);
            SkipFailure([&] { RotateMainImage(view, angle); });
        });
    });
}

void Flip(MainViewFrm& view, const EditWords& words, bool across) {
    const EditFrame edit(view, words);
    edit.RunFromMenu([&] {
        return edit.Redraw([&] {
            const float width = view.PictureTemp.Width;
            const float height = view.PictureTemp.Height;
            SkipFailure([&] {
                if (across) {
                    StretchFromPictureTemp(view, width, 0, -width, height);
                } else {
                    StretchFromPictureTemp(view, 0, height, width, -height);
                }
            });
            view.Module().DoEvents();
        });
    });
}

void ResizeByPart(MainViewFrm& view, const EditWords& words, double part) {
    const EditFrame edit(view, words);
    edit.RunFromMenu([&] {
        EditResult result = EditResult::Refused;
        SkipFailure([&] {
            result = ResizeImage(view, edit, LargerBy(view.MainImage.Width, part),
                                 LargerBy(view.MainImage.Height, part));
        });
        return result;
    });
}

}  // namespace

void mnu90CW_Click(MainViewFrm& view) {
    RotateFixed(view, {.undo = "&Undo Rotate 90° CW"}, static_cast<float>(-HalfPi), Sides::Swapped);
}

void mnu90CCW_Click(MainViewFrm& view) {
    RotateFixed(view, {.undo = "&Undo Rotate 90° CCW"}, static_cast<float>(HalfPi), Sides::Swapped);
}

void mnu180Degrees_Click(MainViewFrm& view) {
    RotateFixed(view, {.undo = "&Undo Rotate 180°"}, 3.1415927F, Sides::Kept);
}

void mnuFlipHorizontal_Click(MainViewFrm& view) {
    Flip(view, {.undo = "&Undo Flip Horizontally"}, true);
}

void mnuFlipVertically_Click(MainViewFrm& view) {
    Flip(view, {.undo = "&Undo Flip Vertically"}, false);
}

void mnu25Smaller_Click(MainViewFrm& view) {
    ResizeByPart(view, {.undo = "&Undo Resize 25% Smaller"}, -0.25);
}

void mnu25Larger_Click(MainViewFrm& view) {
    ResizeByPart(view, {.undo = "&Undo Resize 25% Larger"}, 0.25);
}

void mnu50Smaller_Click(MainViewFrm& view) {
    ResizeByPart(view, {.undo = "&Undo Resize 50% Smaller"}, -0.5);
}

void mnu50Larger_Click(MainViewFrm& view) {
    ResizeByPart(view, {.undo = "&Undo Resize 50% Larger"}, 0.5);
}

}  // namespace tavrix
