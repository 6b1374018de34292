#pragma once

#include "platform/forms/PictureBox.h"
#include "platform/forms/Toolkit.h"

namespace tavrix {

/// Copies a picture, pixel by pixel, to the middle of a surface. What does not fit is left away; a distance of half a
/// pixel is rounded to even.
void CopyToCentre(forms::PictureBox& surface, const Surface& picture, const forms::ScreenInfo& screen);

}  // namespace tavrix
