#pragma once

#include <cstddef>
#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// How many files a question is about, as it says it: "1,234".
[[nodiscard]] std::string CountText(const MainModule& module, std::size_t count);

/// Asks Yes or No with the question icon.
[[nodiscard]] bool UserSaysYes(const MainModule& module, const std::string& question);

}  // namespace tavrix
