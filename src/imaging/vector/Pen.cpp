#include "imaging/vector/Pen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace tavrix::vector {
namespace {

// In pixels; the gaps of thin lines have to be seen.
constexpr std::array<double, 2> CosmeticDash{18, 6};
constexpr std::array<double, 2> CosmeticDot{3, 3};
constexpr std::array<double, 4> CosmeticDashDot{9, 6, 3, 6};
constexpr std::array<double, 6> CosmeticDashDotDot{9, 3, 3, 3, 3, 3};
// In widths of the pen.
constexpr std::array<double, 2> WideDash{3, 1};
constexpr std::array<double, 2> WideDot{1, 1};
constexpr std::array<double, 4> WideDashDot{3, 1, 1, 1};
constexpr std::array<double, 6> WideDashDotDot{3, 1, 1, 1, 1, 1};

std::span<const double> PatternOf(DashStyle style, bool cosmetic) {
    switch (style) {
        case DashStyle::Dash:
            return cosmetic ? std::span<const double>(CosmeticDash) : WideDash;
        case DashStyle::Dot:
            return cosmetic ? std::span<const double>(CosmeticDot) : WideDot;
        case DashStyle::DashDot:
            return cosmetic ? std::span<const double>(CosmeticDashDot) : WideDashDot;
        case DashStyle::DashDotDot:
            return cosmetic ? std::span<const double>(CosmeticDashDotDot) : WideDashDotDot;
        case DashStyle::Solid:
            break;
    }
    return {};
}

}  // namespace

std::vector<double> DashesOf(DashStyle style, double width, LineCap cap) {
    const bool cosmetic = !(width > 0);
    const auto pattern = PatternOf(style, cosmetic);
    std::vector<double> dashes(pattern.begin(), pattern.end());
    if (cosmetic) return dashes;
    const double caps = cap == LineCap::Flat ? 0 : 1;
    for (std::size_t i = 0; i < dashes.size(); ++i)
        dashes[i] = (dashes[i] + (i % 2 == 0 ? -caps : caps)) * width;
    return dashes;
}

Box InsideFrame(const Box& box, double width) {
    Box inner = Tamed(box);
    const double half = std::max(Tamed(width), 0.0) / 2;
    const double x = std::min(half, inner.Width() / 2);
    const double y = std::min(half, inner.Height() / 2);
    return {inner.left + x, inner.top + y, inner.right - x, inner.bottom - y};
}

}  // namespace tavrix::vector
