#pragma once

#include <cmath>

#include "ReferenceRotation.h"

namespace tavrix::test {

/// The rotation by any angle as it is defined, on a display with 15 twips a pixel.
inline Surface ReferenceArbitrary(const Surface& before, int wanted, bool clockwise, bool preserve,
                                  Pixel background) {
    constexpr double Pi = 3.14159265359;
    constexpr double Twips = 15;
    const double sourceW = before.Width() * Twips;
    const double sourceH = before.Height() * Twips;

    int degrees = wanted;
    double radians = (Pi / 180) * degrees;
    double boxW = sourceW;
    double boxH = sourceH;
    if (degrees > 90 && degrees < 180) {
        boxW = sourceH;
        boxH = sourceW;
        degrees = degrees - 90;
    }
    if (clockwise) radians = -radians;

    double width = 0;
    double height = 0;
    if (preserve || degrees == 180) {
        width = boxW;
        height = boxH;
    } else if (degrees == 90) {
        width = boxH;
        height = boxW;
    } else {
        if (clockwise) degrees = degrees - 360;
        const double reduced = degrees * (Pi / 180);
        width = boxH * std::sin(reduced) + boxW * std::cos(reduced) + 2 * Twips;
        height = boxH * std::cos(reduced) + boxW * std::sin(reduced) + 2 * Twips;
    }

    const auto pixels = [](double twips) {
        return static_cast<int>(std::nearbyint(static_cast<float>(twips) / Twips));
    };
    const auto centre = [](double twips) {
        return static_cast<int>(std::nearbyint(static_cast<float>(twips))) / 2 / 15;
    };
    Surface after(pixels(width), pixels(height));
    after.Fill(background);
    ReferenceRotation(before, after, static_cast<float>(radians),
                      {centre(sourceW), centre(sourceH), centre(width), centre(height)}, [](int) {});
    return after;
}

}  // namespace tavrix::test
