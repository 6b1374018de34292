#pragma once

#include "imaging/graphics/Picture.h"
#include "imaging/graphics/Surface.h"

namespace tavrix {

class MainViewFrm;

// PictureTemp, the surface that nobody sees. Outside a command it has neither picture nor size.

/// Lets the picture of PictureTemp be what MainImage shows; it takes its size.
void CopyToPictureTemp(MainViewFrm& view);
/// The pixels of PictureTemp. Throws RuntimeError 481 when it has no picture.
[[nodiscard]] const Surface& PixelsOfPictureTemp(MainViewFrm& view);
/// What PictureTemp shows, with what was drawn on it. Throws RuntimeError 481 while it has no size.
[[nodiscard]] Picture ImageOfPictureTemp(MainViewFrm& view);
/// Takes the picture of PictureTemp away, and its size.
void ClearPictureTemp(MainViewFrm& view);

}  // namespace tavrix
