#pragma once

#include <optional>

#include "backends/qt/x11/ServerImage.h"
#include "backends/qt/x11/X11Connection.h"
#include "imaging/graphics/Surface.h"

namespace tavrix::qt::x11 {

/// How the server lays out the pixels of its screen.
[[nodiscard]] ServerImageLayout LayoutOfScreen(xcb_connection_t* connection);

/// Whether the process shows its windows on an X server whose screen is the desktop itself. That of a server which lives
/// in a Wayland desktop shows its own windows alone.
[[nodiscard]] bool ShowsDesktop();

/// Whether a window of a desktop (icons, a background of its own) lies over the root window.
[[nodiscard]] bool RootIsCovered(xcb_connection_t* connection);

/// All of the server's screen as it is once the windows that the process has hidden are gone, opaque, in device
/// pixels. Lets messages run for as long as that takes, which has a limit. Nothing where ShowsDesktop
/// says no, and on a screen with a palette. Throws RuntimeError 481 when the server refuses, and 7 without the memory.
[[nodiscard]] std::optional<Surface> CaptureScreen();

}  // namespace tavrix::qt::x11
