#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

inline constexpr const char* ShowPattern = "*.tvs";

/// The folder for shows in the program's folder, with a backslash at the end; the latter itself where there is none.
[[nodiscard]] std::string ShowsFolder(const MainModule& module);

}  // namespace tavrix
