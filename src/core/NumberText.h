#pragma once

#include <cstdint>
#include <string>

#include "platform/services/System.h"

namespace tavrix {

/// A whole number in groups of three digits: "1,234,567", and "0" for 0.
[[nodiscard]] std::string GroupedNumber(std::int64_t number, const NumberFormat& format);

/// The same, but empty for 0.
[[nodiscard]] std::string GroupedNumberOrEmpty(std::int64_t number, const NumberFormat& format);

/// The decimal text of a single-precision number, in 7 digits at most.
[[nodiscard]] std::string SingleText(float number);

}  // namespace tavrix
