#pragma once

#include <string>

namespace tavrix {

/// Whether a program that locks the screen by itself, or waits for the moment to do so, runs for this user on this X
/// display (as DISPLAY names it). One whose display cannot be told counts. `processes` is where the system lists them.
[[nodiscard]] bool LockerRuns(const std::string& display, const std::string& processes = "/proc");

/// Whether the user has started an X server from a console: there the shell waits for whoever goes to that console, and
/// no saver guards it.
[[nodiscard]] bool StartedFromConsole(const std::string& processes = "/proc");

/// Whether XDG_CURRENT_DESKTOP names a desktop that guards its own screen: each but those that are a window manager and no
/// more.
[[nodiscard]] bool DesktopHasLocker(const std::string& desktops);

/// What `passwd -S` prints of an account: whether its password can be entered. An account without one, a locked one and
/// one that is not told of have none.
[[nodiscard]] bool HasPassword(const std::string& passwdStatus);

/// The same of the user's account, asked of the system. What it does not tell within two seconds is no password.
[[nodiscard]] bool AccountHasPassword();

}  // namespace tavrix
