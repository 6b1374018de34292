#include "base/Rounding.h"

#include <cmath>
#include <limits>

#include "base/RuntimeError.h"

namespace tavrix {
namespace {

double HalvesToEven(double value) {
    const double below = std::floor(value);
    const double part = value - below;
    if (part < 0.5) return below;
    if (part > 0.5) return below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

template <class Integer>
Integer Rounded(double value) {
    const double whole = HalvesToEven(value);
    if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max())) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<Integer>(whole);
}

}  // namespace

std::int32_t RoundToLong(double value) {
    return Rounded<std::int32_t>(value);
}

std::int16_t ToInteger16(double value) {
    return Rounded<std::int16_t>(value);
}

}  // namespace tavrix
