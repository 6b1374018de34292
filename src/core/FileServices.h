#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Whether a file is an animated GIF that should be played: its name ends in ".GIF", it begins with GIF89a, and
/// AnimateGIF89 is on. A file that cannot be read is none.
[[nodiscard]] bool IsGif89File(const MainModule& module, const std::string& path);

/// Whether any process has a window with exactly this title.
[[nodiscard]] bool WindowExists(const MainModule& module, const std::string& title);

/// The target of a shortcut file; empty when it has none.
[[nodiscard]] std::string ResolveLink(const MainModule& module, const std::string& path);

}  // namespace tavrix
