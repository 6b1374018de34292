#pragma once

#include <span>

#include "editing/turning/RotateArms.h"

namespace tavrix {

/// The radii of a rotation are 16-bit numbers. This is the least square of a distance that no longer rounds to one.
inline constexpr int RadiusOverflowsFrom = 1073709057;  // 32767.5 squared is 1073709056.25

/// Where the polar rotation by an angle finds the pixel for the points of its loop, from the centre of the source.
class PolarOffset {
  public:
    explicit PolarOffset(float angle);

    /// By the definition: the radius rounded to a whole number, the point's own angle in single precision.
    [[nodiscard]] Offset At(int o, int i) const;
    /// At(o, i) for o above 0 and the i from `first` on, as many as the spans hold: at most MaxRun.
    void Run(int o, int first, std::span<int> x, std::span<int> y) const;
    static constexpr std::size_t MaxRun = 64;

    /// Where At(o, i) lies about: it is less than `Slack` away in each coordinate.
    [[nodiscard]] double AboutX(double o, double i) const { return o * cosine_ - i * sine_; }
    [[nodiscard]] double AboutY(double o, double i) const { return o * sine_ + i * cosine_; }
    static constexpr double Slack = 1.01;

  private:
    double angle_;
    double cosine_;
    double sine_;
};

}  // namespace tavrix
