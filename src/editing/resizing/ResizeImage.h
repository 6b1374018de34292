#pragma once

#include <cstdint>

#include "editing/frame/EditFrame.h"

namespace tavrix {

/// The work of an edit that stretches the image to a new size in twips. Refused with a message when both sides would be
/// below 16 pixels, or both above 10000.
[[nodiscard]] EditResult ResizeImage(MainViewFrm& view, const EditFrame& edit, std::int32_t NewWidth,
                                     std::int32_t NewHeight);

/// Copies the whole of PictureTemp to a place of MainImage, in twips; a negative size mirrors. Throws RuntimeError 481
/// without a picture.
void StretchFromPictureTemp(MainViewFrm& view, float x, float y, float width, float height);

}  // namespace tavrix
