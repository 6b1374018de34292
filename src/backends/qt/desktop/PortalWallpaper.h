#pragma once

#include "backends/qt/desktop/WallpaperKeeper.h"

namespace tavrix::qt {

/// The portal, which passes a picture on to whichever desktop runs. It knows neither tiles nor a desktop without a
/// picture, and tells nothing. The user may be asked; that is not waited for.
class PortalWallpaper final : public WallpaperKeeper {
  public:
    [[nodiscard]] bool Show(const std::string& file, bool tiled) override;
    [[nodiscard]] bool Clear() override { return false; }
    [[nodiscard]] std::optional<std::string> Current() override { return std::nullopt; }
};

}  // namespace tavrix::qt
