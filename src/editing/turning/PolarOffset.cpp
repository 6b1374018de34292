#include "editing/turning/PolarOffset.h"

#include <array>
#include <cmath>

namespace tavrix {
namespace {

/// Rounds halves to even, as nearbyint does in the default mode of the processor, but many values at a time without
/// instructions that not every processor has: beyond 2^52 double precision has no room for a fraction.
double Nearest(double value) {
    constexpr double NoFraction = 6755399441055744.0;  // 1.5 * 2^52, so that negative values work too
    return (value + NoFraction) - NoFraction;
}

/// How close to a half a coordinate may lie before the definition has to decide: the single-precision angle of a
/// point is off by 2^-24 at most, that is 5.97e-8 of the radius.
double Doubt(double radius) {
    return radius * 6.1e-8 + 1e-9;
}

}  // namespace

PolarOffset::PolarOffset(float angle)
    : angle_(double{angle}), cosine_(std::cos(angle_)), sine_(std::sin(angle_)) {}

Offset PolarOffset::At(int o, int i) const {
    const auto theta = static_cast<float>(
        o == 0 ? 3.14159265359 / 2 : std::atan(static_cast<double>(i) / static_cast<double>(o)));
    const double radius = Nearest(std::sqrt(static_cast<double>(o) * o + static_cast<double>(i) * i));
    const double turned = double{theta} + angle_;
    return {static_cast<int>(Nearest(radius * std::cos(turned))),
            static_cast<int>(Nearest(radius * std::sin(turned)))};
}

void PolarOffset::Run(int o, int first, std::span<int> x, std::span<int> y) const {
    std::array<double, MaxRun> offX;
    std::array<double, MaxRun> offY;
    const int count = static_cast<int>(x.size());
    const double across = o;
    int* const toX = x.data();
    int* const toY = y.data();
    for (int k = 0; k < count; ++k) {
        const double down = first + k;
        const double distance = std::sqrt(across * across + down * down);
        const double scale = Nearest(distance) / distance;
        const double exactX = scale * (across * cosine_ - down * sine_);
        const double exactY = scale * (across * sine_ + down * cosine_);
        const double wholeX = Nearest(exactX);
        const double wholeY = Nearest(exactY);
        toX[k] = static_cast<int>(wholeX);
        toY[k] = static_cast<int>(wholeY);
        offX[static_cast<std::size_t>(k)] = std::abs(exactX - wholeX);
        offY[static_cast<std::size_t>(k)] = std::abs(exactY - wholeY);
    }
    const double sure = 0.5 - Doubt(std::hypot(o, first + count));
    for (int k = 0; k < count; ++k) {
        const auto at = static_cast<std::size_t>(k);
        if (offX[at] < sure && offY[at] < sure) continue;
        const Offset decided = At(o, first + k);
        x[at] = decided.x;
        y[at] = decided.y;
    }
}

}  // namespace tavrix
