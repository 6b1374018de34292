#pragma once

#include <string>

namespace tavrix {

/// Another executable of this installation, a host path: beside the given one, else in the program's folder as a module of
/// XScreenSaver is installed to see it. Empty where it is in neither.
[[nodiscard]] std::string NeighbourOf(const std::string& executable, const std::string& name);

}  // namespace tavrix
