#pragma once

#include <cstdint>
#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// The key of the desktop's settings of the current user.
inline constexpr const char* DesktopKey = "Control Panel\\desktop";

/// The desktop's pattern; empty for none.
[[nodiscard]] std::string GetDesktopPattern(const MainModule& module);
/// The file of the desktop's wallpaper; empty for none.
[[nodiscard]] std::string GetWallpaperPath(const MainModule& module);
/// Height of menu bar and caption in twips.
[[nodiscard]] std::int32_t GetChromeHeight(const MainModule& module);

}  // namespace tavrix
