#pragma once

#include "platform/forms/Toolkit.h"

namespace tavrix {

/// The points that a rotation turns about, in pixels.
struct RotateGeometry {
    int sourceCentreX = 0;
    int sourceCentreY = 0;
    int destCentreX = 0;
    int destCentreY = 0;
};

/// The centres of two surfaces with these sizes in twips. Sizes and twips per pixel are rounded to whole numbers
/// first, halves to even, and divided as such. Throws RuntimeError 6 (Overflow) for a size beyond 32 bits.
[[nodiscard]] RotateGeometry CentresOf(float sourceWidth, float sourceHeight, float destWidth,
                                       float destHeight, const forms::ScreenInfo& screen);

}  // namespace tavrix
