#include "backends/qt/peers/Contrast.h"

#include <algorithm>
#include <cmath>

namespace tavrix::qt {
namespace {

double Linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

QColor Between(const QColor& from, const QColor& to, double part) {
    const auto mix = [part](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

}  // namespace

double ContrastOf(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor TextColourOn(const QColor& below) {
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return ContrastOf(black, below) >= ContrastOf(white, below) ? black : white;
}

QColor ReadableOn(const QColor& below, const QColor& colour, double least) {
    constexpr int Steps = 20;
    const QColor end = TextColourOn(below);
    for (int step = 0; step < Steps; ++step) {
        const QColor mixed = Between(colour, end, static_cast<double>(step) / Steps);
        if (ContrastOf(mixed, below) >= least) return mixed;
    }
    return end;
}

}  // namespace tavrix::qt
