#pragma once

#include <string>

#include "platform/services/System.h"

namespace tavrix {

/// How many slides a show has, in words: "Zero slides (images) total...".
[[nodiscard]] std::string SlideCountText(int count, const NumberFormat& format);

}  // namespace tavrix
