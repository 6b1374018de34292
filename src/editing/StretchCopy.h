#pragma once

#include "platform/forms/Toolkit.h"
#include "platform/graphics/Surface.h"

namespace tavrix {

/// The stretching copy of platform/graphics/StretchCopy.h with all places and sizes in twips. Each is rounded to
/// pixels by itself, halves to even; throws RuntimeError 6 (Overflow) where one does not fit.
void StretchCopy(Surface& Dest, float X, float Y, float Width, float Height, const Surface& Source,
                 float SourceX, float SourceY, float SourceWidth, float SourceHeight,
                 const forms::ScreenInfo& screen);

}  // namespace tavrix
