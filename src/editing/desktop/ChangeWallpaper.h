#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Makes a file the wallpaper; none for an empty path. False where the desktop takes no wallpaper from a program; other
/// failures are skipped.
[[nodiscard]] bool ChangeWallpaper(const MainModule& module, const std::string& path);
/// Tells that the desktop takes none.
void TellNoWallpaper(const MainModule& module);

}  // namespace tavrix
