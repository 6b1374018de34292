#pragma once

#include "core/MainModule.h"

namespace tavrix {

/// Saves the settings, where the main view is loaded, for a process that is ended from outside. Nothing is asked, and the
/// working file stays, so that Temporary File brings it back. The process may live on.
void SaveForEndOfSession(const MainModule& module);

}  // namespace tavrix
