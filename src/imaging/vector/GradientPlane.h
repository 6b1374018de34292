#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "imaging/graphics/Colour.h"
#include "imaging/vector/Gradient.h"

namespace tavrix::vector {

/// A colour that changes evenly over the device: each channel (0 to 65535) is x * byX + y * byY + start.
struct GradientPlane {
    struct Channel {
        double byX = 0;
        double byY = 0;
        double start = 0;

        [[nodiscard]] unsigned At(double x, double y) const {
            return static_cast<unsigned>(std::clamp(x * byX + y * byY + start, 0.0, 65535.0)) >> 8U;
        }
    };

    Channel red;
    Channel green;
    Channel blue;

    /// The plane through three corners; nothing where they lie on one line.
    [[nodiscard]] static std::optional<GradientPlane> Through(const GradientTriangle& corners);

    [[nodiscard]] Pixel At(int x, int y) const {
        const double cx = x + 0.5;
        const double cy = y + 0.5;
        return OpaquePixel(red.At(cx, cy), green.At(cx, cy), blue.At(cx, cy));
    }
};

}  // namespace tavrix::vector
