#pragma once

#include "imaging/graphics/Surface.h"
#include "platform/forms/Toolkit.h"

namespace tavrix {

class MainViewFrm;
class Selection;

/// The corners of the selection in order, in twips of MainImage. Its outline lies in the image, so that what is meant
/// starts one pixel inside.
struct SelectedArea {
    explicit SelectedArea(const Selection& selection);

    float Left;
    float Top;
    float Right;
    float Bottom;
};

/// Gives PictureTemp the size of what is selected. Each throws RuntimeError 380 and leaves the size where it is, for a
/// selection of less than three pixels in that direction.
void TakeWidthOfSelection(MainViewFrm& view);
void TakeHeightOfSelection(MainViewFrm& view);

/// Copies what is selected from the image to the whole of PictureTemp. `smaller` pixels are left away at the right and
/// at the bottom of the source, for which the rest is stretched.
void CopySelectionToPictureTemp(MainViewFrm& view, int smaller);

}  // namespace tavrix
