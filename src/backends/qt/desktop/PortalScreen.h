#pragma once

#include <optional>

#include "imaging/graphics/Surface.h"

namespace tavrix::qt {

/// The screen as the portal shows it, for desktops that let no program look themselves. The user may be asked. Nothing
/// without a portal and where the user refuses. Throws RuntimeError 53 when the picture's file is not there, and 481
/// when it is none.
[[nodiscard]] std::optional<Surface> CaptureByPortal();

}  // namespace tavrix::qt
