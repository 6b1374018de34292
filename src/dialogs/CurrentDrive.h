#pragma once

#include <string>

#include "core/MainModule.h"
#include "platform/forms/Form.h"

namespace tavrix {

/// Looks at the root of the current drive, so that a drive that sleeps or is not ready is found out before the lists of a
/// dialog need it. Nobody waits for one that is long in coming, and failures are passed over.
void TouchCurrentDrive(const MainModule& module);

/// The first file in the root of the current drive; empty where there is none, where the drive cannot be read, or where the
/// form was closed while it was waited for.
[[nodiscard]] std::string FirstFileOfCurrentDrive(const MainModule& module, const forms::Form& form);

}  // namespace tavrix
