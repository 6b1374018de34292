#pragma once

#include <optional>
#include <string>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// The desktop that the program's windows stand on: what its screen shows, and its wallpaper.
class Desktop {
  public:
    virtual ~Desktop() = default;
    /// What the whole screen shows, opaque, in device pixels, all displays of it. Windows of this process that have
    /// been hidden are not in it: the call waits until the desktop has taken them away, a second or so at most; where
    /// the user is asked for leave, until that is answered. Nothing where the desktop lets nobody look. Throws
    /// RuntimeError where it does and the look failed: 7 without the memory for it, 481 for what is no picture.
    [[nodiscard]] virtual std::optional<Surface> Capture() = 0;
    /// Makes a picture's file the wallpaper; an empty path switches the wallpaper off. Whether it is tiled or centred
    /// is told by the value TileWallpaper of Control Panel\desktop ("1": tiled). That key's value Wallpaper follows.
    /// Throws RuntimeError 53 for a missing file and 68 where the desktop takes no wallpaper.
    virtual void SetWallpaper(const std::string& path) = 0;
};

}  // namespace tavrix
