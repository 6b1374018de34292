#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Deletes the package in a folder, as far as its files are known by their kind or their name, and tells how that ended.
/// The user has agreed. Files go to the trash where the settings say so and there is one for them; what is not of a
/// package stays, with the folder around it, and is told. A failure ends it; it may be tried again then.
void RemovePackage(const MainModule& module, const std::string& folder, const std::string& name);

}  // namespace tavrix
