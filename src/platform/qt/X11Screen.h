#pragma once

#include <optional>

#include "platform/graphics/Surface.h"
#include "platform/qt/ServerImage.h"
#include "platform/qt/X11Connection.h"

namespace tavrix::qt::x11 {

/// How the server lays out the pixels of its screen.
[[nodiscard]] ServerImageLayout LayoutOfScreen(xcb_connection_t* connection);

/// All of the server's screen as it is once the windows that the process has hidden are gone, opaque, in device
/// pixels. Lets messages run for as long as that takes, which has a limit. Nothing where the server has no screen to
/// look at: without an X server, on one that lives in a Wayland desktop and shows its own windows alone, and with a
/// palette. Throws RuntimeError 481 when the server refuses, and 7 without the memory.
[[nodiscard]] std::optional<Surface> CaptureScreen();

}  // namespace tavrix::qt::x11
