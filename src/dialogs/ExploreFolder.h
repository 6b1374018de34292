#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Shows a folder in the desktop's file manager; a failure is told.
void ExploreFolder(const MainModule& module, const std::string& folder);

}  // namespace tavrix
