#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>

#include "base/Rounding.h"
#include "editing/turning/RotateGeometry.h"
#include "imaging/graphics/Surface.h"

namespace tavrix {

inline bool Holds(const Surface& surface, std::int64_t x, std::int64_t y) {
    return x >= 0 && x < surface.Width() && y >= 0 && y < surface.Height();
}

inline std::optional<Pixel> PixelAt(const Surface& surface, std::int64_t x, std::int64_t y) {
    if (!Holds(surface, x, y)) return std::nullopt;
    return surface.Row(static_cast<int>(y))[static_cast<std::size_t>(x)];
}

inline void PutPixel(Surface& surface, std::int64_t x, std::int64_t y, std::optional<Pixel> pixel) {
    if (pixel && Holds(surface, x, y)) surface.Row(static_cast<int>(y))[static_cast<std::size_t>(x)] = *pixel;
}

/// The polar rotation as it is defined, point by point: what RotatePicture has to come to.
inline void ReferenceRotation(const Surface& source, Surface& dest, float angle,
                              const RotateGeometry& geometry, const std::function<void(int row)>& afterRow) {
    const std::int64_t sourceX = geometry.sourceCentreX;
    const std::int64_t sourceY = geometry.sourceCentreY;
    const std::int64_t destX = geometry.destCentreX;
    const std::int64_t destY = geometry.destCentreY;
    const int limit = ToInteger16(static_cast<double>(std::max(destX, destY) - 1));
    for (int o = 0; o <= limit; ++o) {
        for (int i = 0; i <= limit; ++i) {
            float theta = 0;
            if (o == 0) {
                theta = static_cast<float>(3.14159265359 / 2);
            } else {
                theta = static_cast<float>(std::atan(static_cast<double>(i) / o));
            }
            const int radius =
                ToInteger16(std::sqrt(static_cast<double>(o) * o + static_cast<double>(i) * i));
            const double sum = static_cast<double>(theta) + static_cast<double>(angle);
            const int dx = RoundToLong(radius * std::cos(sum));
            const int dy = RoundToLong(radius * std::sin(sum));
            const auto p1 = PixelAt(source, sourceX + dx, sourceY + dy);
            const auto p2 = PixelAt(source, sourceX - dx, sourceY - dy);
            const auto p3 = PixelAt(source, sourceX + dy, sourceY - dx);
            const auto p4 = PixelAt(source, sourceX - dy, sourceY + dx);
            PutPixel(dest, destX + o, destY + i, p1);
            PutPixel(dest, destX - o, destY - i, p2);
            PutPixel(dest, destX + i, destY - o, p3);
            PutPixel(dest, destX - i, destY + o, p4);
        }
        afterRow(o);
    }
}

}  // namespace tavrix
