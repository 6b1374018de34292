#include "editing/creating/CentreCopy.h"

#include "imaging/graphics/StretchCopy.h"
#include "platform/forms/Twips.h"

namespace tavrix {

void CopyToCentre(forms::PictureBox& surface, const Surface& picture, const forms::ScreenInfo& screen) {
    const auto before = [](float whole, int pixels, float twipsPerPixel) {
        return forms::ToPixels((whole - forms::ToTwips(pixels, twipsPerPixel)) / 2, twipsPerPixel);
    };
    const int width = picture.Width();
    const int height = picture.Height();
    const PixelRect place{before(surface.Width, width, screen.twipsPerPixelX),
                          before(surface.Height, height, screen.twipsPerPixelY), width, height};
    StretchCopy(surface.Bitmap(), place, picture, {0, 0, width, height});
    surface.Refresh();
}

}  // namespace tavrix
