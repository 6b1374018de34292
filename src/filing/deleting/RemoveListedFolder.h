#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Removes an empty folder that was chosen in a list. Throws RuntimeError 76 when no folder stands there in exactly this
/// spelling, since a look-alike is another one, and what Files::RemoveFolder throws.
void RemoveListedFolder(const MainModule& module, const std::string& folder);

}  // namespace tavrix
