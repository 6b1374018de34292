#include "imaging/metafile/Mapping.h"

#include <algorithm>
#include <cmath>

namespace tavrix::metafile {
namespace {

constexpr double MillimetresPerInch = 25.4;

vector::Affine ToAffine(const Transform& t) {
    const auto finite = [](float value) { return std::isfinite(value) ? static_cast<double>(value) : 0.0; };
    return {finite(t.xx), finite(t.xy), finite(t.yx), finite(t.yy), finite(t.dx), finite(t.dy)};
}

vector::Point ToPoint(Point point) {
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

/// Extents whose ratio stays in bounds, so that repeated scaling ends at numbers that are still of use.
double Scaled(double extent, std::int32_t multiply, std::int32_t divide) {
    constexpr double Largest = 1 << 30;
    if (multiply == 0 || divide == 0) return extent;
    const double scaled = extent * multiply / divide;
    return std::abs(scaled) < 1 / Largest ? extent : std::clamp(scaled, -Largest, Largest);
}

}  // namespace

Mapping::Mapping(const Placement& placement)
    : pixelsPerMillimetreX_(placement.pixelsPerMillimetreX),
      pixelsPerMillimetreY_(placement.pixelsPerMillimetreY),
      windowExtentOfText_{placement.window.Width(), placement.window.Height()},
      viewportExtentOfText_{placement.viewport.Width(), placement.viewport.Height()},
      mode_(placement.enhanced ? Text : Anisotropic),
      windowOrigin_{placement.window.left, placement.window.top},
      windowExtent_(windowExtentOfText_),
      viewportOrigin_{placement.viewport.left, placement.viewport.top},
      viewportExtent_(viewportExtentOfText_) {}

void Mapping::UseMillimetres(double unit) {
    windowExtent_ = {1, 1};
    viewportExtent_ = {pixelsPerMillimetreX_ * unit, -pixelsPerMillimetreY_ * unit};
}

void Mapping::SetMode(std::uint32_t mode) {
    switch (mode) {
        case Text:
            // A plain metafile's pixels are those that its header speaks of, whatever the screen has.
            windowExtent_ = windowExtentOfText_;
            viewportExtent_ = viewportExtentOfText_;
            break;
        case LowMetric:
            UseMillimetres(0.1);
            break;
        case HighMetric:
            UseMillimetres(0.01);
            break;
        case LowEnglish:
            UseMillimetres(MillimetresPerInch / 100);
            break;
        case HighEnglish:
            UseMillimetres(MillimetresPerInch / 1000);
            break;
        case Twips:
            UseMillimetres(MillimetresPerInch / 1440);
            break;
        case Isotropic:
        case Anisotropic:
            break;
        default:
            return;
    }
    mode_ = mode;
}

void Mapping::Set(const SetFrame& change) {
    const vector::Point value = ToPoint(change.value);
    const auto origin = [&](vector::Point& point) { point = change.relative ? point + value : value; };
    const auto extent = [&](vector::Point& point) {
        if (ExtentsCount() && value.x != 0 && value.y != 0) point = value;
    };
    switch (change.frame) {
        case Frame::WindowOrigin:
            return origin(windowOrigin_);
        case Frame::ViewportOrigin:
            return origin(viewportOrigin_);
        case Frame::WindowExtent:
            return extent(windowExtent_);
        case Frame::ViewportExtent:
            return extent(viewportExtent_);
        case Frame::BrushOrigin:
            break;
    }
}

void Mapping::Scale(const ScaleExtent& change) {
    if (!ExtentsCount()) return;
    vector::Point& extent = change.frame == Frame::WindowExtent ? windowExtent_ : viewportExtent_;
    extent = {Scaled(extent.x, change.multiply.x, change.divide.x),
              Scaled(extent.y, change.multiply.y, change.divide.y)};
}

void Mapping::SetWorld(const Transform& transform) {
    world_ = ToAffine(transform);
}

void Mapping::ModifyWorld(const ModifyTransform& change) {
    const vector::Affine affine = ToAffine(change.transform);
    switch (change.mode) {
        case ModifyTransform::Mode::Identity:
            world_ = {};
            break;
        case ModifyTransform::Mode::Left:
            world_ = affine.Then(world_);
            break;
        case ModifyTransform::Mode::Right:
            world_ = world_.Then(affine);
            break;
        case ModifyTransform::Mode::Set:
            world_ = affine;
            break;
    }
}

vector::Affine Mapping::PageToDevice() const {
    double x = windowExtent_.x == 0 ? 1 : viewportExtent_.x / windowExtent_.x;
    double y = windowExtent_.y == 0 ? 1 : viewportExtent_.y / windowExtent_.y;
    if (mode_ == Isotropic) {
        // A unit is as long in both directions on paper: the smaller one.
        const double perMillimetreX = std::abs(x) / pixelsPerMillimetreX_;
        const double perMillimetreY = std::abs(y) / pixelsPerMillimetreY_;
        const double smaller = std::min(perMillimetreX, perMillimetreY);
        x = std::copysign(smaller * pixelsPerMillimetreX_, x);
        y = std::copysign(smaller * pixelsPerMillimetreY_, y);
    }
    return {x, 0, 0, y, viewportOrigin_.x - windowOrigin_.x * x, viewportOrigin_.y - windowOrigin_.y * y};
}

vector::Affine Mapping::ToDevice() const {
    return world_.Then(PageToDevice());
}

}  // namespace tavrix::metafile
