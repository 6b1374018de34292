#pragma once

#include <string>

namespace tavrix {

/// Another executable of this installation, a host path: beside the given one, else in the folder `bin` that an executable
/// below libexec belongs to. Empty where it is in neither.
[[nodiscard]] std::string NeighbourOf(const std::string& executable, const std::string& name);

}  // namespace tavrix
