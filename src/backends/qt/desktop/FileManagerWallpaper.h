#pragma once

#include <QString>

#include "backends/qt/desktop/WallpaperKeeper.h"

namespace tavrix::qt {

/// LXQt and LXDE, whose file managers draw the desktop and are told of a wallpaper by their own command. What is told
/// is what stands in their settings.
class FileManagerWallpaper final : public WallpaperKeeper {
  public:
    enum class Kind : std::uint8_t { Lxqt, Lxde };

    explicit FileManagerWallpaper(Kind kind) : kind_(kind) {}

    [[nodiscard]] bool Show(const std::string& file, bool tiled) override;
    [[nodiscard]] bool Clear() override;
    [[nodiscard]] std::optional<std::string> Current() override;

  private:
    [[nodiscard]] bool Tell(const QString& mode, const QString& file = {}) const;

    Kind kind_;
};

}  // namespace tavrix::qt
