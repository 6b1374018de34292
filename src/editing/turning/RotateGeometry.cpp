#include "editing/turning/RotateGeometry.h"

#include <cmath>

#include "base/Rounding.h"
#include "editing/frame/Sizes.h"

namespace tavrix {
namespace {

int CentreOf(float twips, float twipsPerPixel) {
    if (std::trunc(twipsPerPixel) != twipsPerPixel) return WholePixels(twips, twipsPerPixel) / 2;
    return RoundToLong(twips) / 2 / RoundToLong(twipsPerPixel);
}

}  // namespace

RotateGeometry CentresOf(float sourceWidth, float sourceHeight, float destWidth, float destHeight,
                         const forms::ScreenInfo& screen) {
    return {CentreOf(sourceWidth, screen.twipsPerPixelX), CentreOf(sourceHeight, screen.twipsPerPixelY),
            CentreOf(destWidth, screen.twipsPerPixelX), CentreOf(destHeight, screen.twipsPerPixelY)};
}

}  // namespace tavrix
