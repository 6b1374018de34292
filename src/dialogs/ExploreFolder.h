#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Starts the desktop's file manager on a folder; an empty one leaves to it where it begins. False when it could not be
/// started.
[[nodiscard]] bool StartExplorer(const MainModule& module, const std::string& folder);

/// Shows a folder in the desktop's file manager; a failure is told.
void ExploreFolder(const MainModule& module, const std::string& folder);

}  // namespace tavrix
