#pragma once

#include "imaging/graphics/Surface.h"
#include "platform/forms/Toolkit.h"

namespace tavrix {

/// The stretching copy of imaging/graphics/StretchCopy.h with all places and sizes in twips. Each is rounded to
/// pixels by itself, halves to even; throws RuntimeError 6 (Overflow) where one does not fit.
void StretchCopy(Surface& Dest, float X, float Y, float Width, float Height, const Surface& Source,
                 float SourceX, float SourceY, float SourceWidth, float SourceHeight,
                 const forms::ScreenInfo& screen);

}  // namespace tavrix
