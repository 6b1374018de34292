#pragma once

#include <cstdint>

#include "platform/forms/Toolkit.h"

namespace tavrix {

/// A length in twips as whole pixels: rounded to whole twips, then what is left of a pixel cut away. Where a pixel is no
/// whole number of twips, as on a display at 200 %, the nearest pixel.
[[nodiscard]] int WholePixels(float twips, float twipsPerPixel);

/// A length in twips made larger by a part of itself (-0.25: a quarter smaller), rounded to whole twips, halves to
/// even. Throws RuntimeError 6 (Overflow) beyond 32 bits.
[[nodiscard]] std::int32_t LargerBy(float twips, double part);

/// Whether a resize is refused since both sides would be below 16 pixels. Sizes in twips.
[[nodiscard]] bool TooSmall(std::int32_t newWidth, std::int32_t newHeight, const forms::ScreenInfo& screen);
/// Whether a resize is refused since both sides would be above 10000 pixels. Sizes in twips.
[[nodiscard]] bool TooLarge(std::int32_t newWidth, std::int32_t newHeight, const forms::ScreenInfo& screen);

/// What the user asks of a rotation by any angle.
struct RotationWish {
    int degrees = 1;  ///< 1 to 180
    bool clockwise = false;
    bool preserveSize = false;
};

/// What a rotation by any angle makes of a picture.
struct RotationPlan {
    float width = 0;   ///< of the new picture, twips
    float height = 0;  ///< of the new picture, twips
    float angle = 0;   ///< radians, positive counter-clockwise
};

/// The size of the rotated picture and the angle for RotatePicture. Sizes in twips.
[[nodiscard]] RotationPlan PlanRotation(const RotationWish& wish, float sourceWidth, float sourceHeight,
                                        const forms::ScreenInfo& screen);

}  // namespace tavrix
