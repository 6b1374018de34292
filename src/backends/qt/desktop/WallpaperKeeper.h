#pragma once

#include <optional>
#include <string>

namespace tavrix::qt {

/// What keeps the wallpaper of a desktop. Files are host paths.
class WallpaperKeeper {
  public:
    virtual ~WallpaperKeeper() = default;
    /// Shows a picture's file on all of the desktop at the picture's own size, tiled or in the middle. A file that is
    /// shown already is read again. Whether the desktop took it.
    [[nodiscard]] virtual bool Show(const std::string& file, bool tiled) = 0;
    /// Shows no picture any more. Whether the desktop took it.
    [[nodiscard]] virtual bool Clear() = 0;
    /// The file on show, empty for none; nothing where the desktop does not tell.
    [[nodiscard]] virtual std::optional<std::string> Current() = 0;
};

}  // namespace tavrix::qt
