#include "imaging/vector/PenShape.h"

#include <algorithm>
#include <cmath>

namespace tavrix::vector {
namespace {

/// Patterns that repeat within less than this many pixels look solid, and are drawn so.
constexpr double ShortestPattern = 0.5;
constexpr std::size_t MostDashes = 64;

/// Whether lengths grow by the same factor in all directions.
bool Uniform(const Affine& map) {
    const double a = std::hypot(map.m11, map.m12);
    const double b = std::hypot(map.m21, map.m22);
    const double skew = map.m11 * map.m21 + map.m12 * map.m22;
    return std::abs(a - b) <= 1e-3 * a && std::abs(skew) <= 1e-3 * a * b;
}

std::vector<double> Usable(const std::vector<double>& dashes, double scale) {
    if (dashes.size() > MostDashes) return {};
    std::vector<double> result;
    double sum = 0;
    for (const double dash : dashes) {
        const double length = std::max(Tamed(dash), 0.0) * scale;
        result.push_back(length);
        sum += length;
    }
    if (!(sum > 0)) return {};
    if (result.size() % 2 != 0) {
        const std::vector<double> once = result;
        result.insert(result.end(), once.begin(), once.end());
    }
    return result;
}

double SumOf(const std::vector<double>& dashes) {
    double sum = 0;
    for (const double dash : dashes)
        sum += dash;
    return sum;
}

PenShape OnePixel(const Pen& pen, double dashScale) {
    PenShape shape;
    shape.onePixel = true;
    // Enough for the corners of boxes, and no spikes.
    shape.miterLimit = 2;
    shape.dashes = Usable(pen.dashes, dashScale);
    if (SumOf(shape.dashes) < ShortestPattern) shape.dashes.clear();
    return shape;
}

}  // namespace

SnapGrid PenShape::Grid() const {
    const bool odd = std::fmod(std::floor(deviceWidth + 0.5), 2.0) != 0;
    SnapGrid grid{.line = odd ? 0.5 : 0, .end = 0, .fill = false};
    if (onePixel || cap != LineCap::Flat) grid.end = grid.line;
    return grid;
}

PenShape ShapeOf(const Pen& pen, const Affine& penToDevice) {
    Affine linear = penToDevice;
    linear.dx = linear.dy = 0;
    const double width = std::max(Tamed(pen.width), 0.0);
    const auto inverse = linear.Inverse();
    if (width == 0) return OnePixel(pen, 1);
    if (!inverse) return OnePixel(pen, 0);

    const double scale = linear.MeanScale();
    const double device = width * scale;
    const double rounded = std::floor(device + 0.5);
    if (!std::isfinite(device) || rounded <= 1) return OnePixel(pen, scale);
    PenShape shape;
    shape.toDevice = linear;
    shape.toPen = *inverse;
    shape.width = Uniform(linear) ? rounded / scale : width;
    shape.deviceWidth = rounded;
    shape.cap = pen.cap;
    shape.join = pen.join;
    shape.miterLimit = std::max(Tamed(pen.miterLimit), 1.0);
    shape.dashes = Usable(pen.dashes, 1);
    if (SumOf(shape.dashes) * scale < ShortestPattern) shape.dashes.clear();
    return shape;
}

}  // namespace tavrix::vector
