#include "editing/resizing/StretchCopy.h"

#include "imaging/graphics/StretchCopy.h"
#include "platform/forms/Twips.h"

namespace tavrix {

void StretchCopy(Surface& Dest, float X, float Y, float Width, float Height, const Surface& Source,
                 float SourceX, float SourceY, float SourceWidth, float SourceHeight,
                 const forms::ScreenInfo& screen) {
    StretchCopy(Dest, forms::ToPixels(X, Y, Width, Height, screen), Source,
                forms::ToPixels(SourceX, SourceY, SourceWidth, SourceHeight, screen));
}

}  // namespace tavrix
