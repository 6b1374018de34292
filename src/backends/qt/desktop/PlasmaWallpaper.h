#pragma once

#include "backends/qt/desktop/WallpaperKeeper.h"

namespace tavrix::qt {

/// KDE's Plasma, by the scripts that its shell runs. All of its desktops get the same picture; what is told is the
/// picture of the first.
class PlasmaWallpaper final : public WallpaperKeeper {
  public:
    [[nodiscard]] bool Show(const std::string& file, bool tiled) override;
    [[nodiscard]] bool Clear() override;
    [[nodiscard]] std::optional<std::string> Current() override;
};

}  // namespace tavrix::qt
