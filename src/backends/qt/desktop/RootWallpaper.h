#pragma once

#include "backends/qt/desktop/WallpaperKeeper.h"

namespace tavrix::qt {

/// The background of an X server's root window, for desktops that are a window manager and no more. The picture lies in
/// a pixmap that outlives the process; the root's properties name it for whoever wants to look through to it. Where some
/// program's desktop lies over the root, it takes nothing.
class RootWallpaper final : public WallpaperKeeper {
  public:
    [[nodiscard]] bool Show(const std::string& file, bool tiled) override;
    [[nodiscard]] bool Clear() override;
    [[nodiscard]] std::optional<std::string> Current() override { return std::nullopt; }
};

}  // namespace tavrix::qt
