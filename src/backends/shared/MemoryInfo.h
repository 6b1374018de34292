#pragma once

#include <string_view>

#include "platform/services/System.h"

namespace tavrix {

/// The figures in the text of /proc/meminfo (proc(5)), whose lines give kibibytes by name. All zero for a text without them.
[[nodiscard]] MemoryFigures MemoryFiguresOf(std::string_view text);

}  // namespace tavrix
