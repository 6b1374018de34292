#pragma once

#include <string>

#include "core/MainModule.h"
#include "platform/services/ProgramFiles.h"
#include "shows/package/PackageValues.h"

namespace tavrix {

/// "screen saver" or "slide show": what a package is called.
[[nodiscard]] std::string KindOf(const PackageValues& values);

/// Makes the package of a show, by its file name in PackageSource, in PackageDestination, and tells how that ended. The
/// user has agreed to all of it but to the files that it would replace. What was copied before a cancel or a failure
/// stays. The show is the shared one afterwards, and the source folder the current one.
void SavePackage(MainModule& module, ProgramFiles& programFiles, const PackageValues& values,
                 const std::string& show);

}  // namespace tavrix
