#include "editing/frame/Sizes.h"

#include <cmath>
#include <utility>

#include "base/Rounding.h"
#include "platform/forms/Twips.h"

namespace tavrix {
namespace {

constexpr double RadiansPerDegree = 3.14159265359 / 180;

}  // namespace

int WholePixels(float twips, float twipsPerPixel) {
    if (std::trunc(twipsPerPixel) != twipsPerPixel) return forms::ToPixels(twips, twipsPerPixel);
    return RoundToLong(twips) / RoundToLong(twipsPerPixel);
}

std::int32_t LargerBy(float twips, double part) {
    return RoundToLong(double{twips} + part * double{twips});
}

bool TooSmall(std::int32_t newWidth, std::int32_t newHeight, const forms::ScreenInfo& screen) {
    return 16.0 * double{screen.twipsPerPixelX} > newWidth &&
           16.0 * double{screen.twipsPerPixelY} > newHeight;
}

bool TooLarge(std::int32_t newWidth, std::int32_t newHeight, const forms::ScreenInfo& screen) {
    return 10000.0 * double{screen.twipsPerPixelX} < newWidth &&
           10000.0 * double{screen.twipsPerPixelY} < newHeight;
}

RotationPlan PlanRotation(const RotationWish& wish, float sourceWidth, float sourceHeight,
                          const forms::ScreenInfo& screen) {
    double radians = RadiansPerDegree * wish.degrees;
    int degrees = wish.degrees;
    float boxWidth = sourceWidth;
    float boxHeight = sourceHeight;
    // Beyond a quarter turn the box is that of the angle that remains, with the sides swapped; keeping the size keeps
    // that swap too.
    if (degrees > 90 && degrees < 180) {
        std::swap(boxWidth, boxHeight);
        degrees -= 90;
    }
    if (wish.clockwise) radians = -radians;

    RotationPlan plan{boxWidth, boxHeight, static_cast<float>(radians)};
    if (wish.preserveSize || degrees == 180) return plan;
    if (degrees == 90) {
        std::swap(plan.width, plan.height);
        return plan;
    }
    if (wish.clockwise) degrees -= 360;
    const double reduced = degrees * RadiansPerDegree;
    plan.width = static_cast<float>(boxHeight * std::sin(reduced) + boxWidth * std::cos(reduced) +
                                    2 * double{screen.twipsPerPixelX});
    plan.height = static_cast<float>(boxHeight * std::cos(reduced) + boxWidth * std::sin(reduced) +
                                     2 * double{screen.twipsPerPixelY});
    return plan;
}

}  // namespace tavrix
