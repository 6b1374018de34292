#pragma once

#include <QString>
#include <QVariant>
#include <string>
#include <vector>

#include "backends/qt/desktop/WallpaperKeeper.h"

namespace tavrix::qt {

/// Xfce, by the service of its settings. Each workspace of each display has a picture of its own; all get the same, and
/// what is told is that of the first one that has any.
class XfceWallpaper final : public WallpaperKeeper {
  public:
    [[nodiscard]] bool Show(const std::string& file, bool tiled) override;
    [[nodiscard]] bool Clear() override;
    [[nodiscard]] std::optional<std::string> Current() override;

  private:
    /// One picture among the desktop's settings.
    struct Backdrop {
        QString place;  ///< the settings' path, with a slash at the end
        QString image;
        bool shown = true;
    };
    /// Those that the settings name, by their paths. Nothing where the service does not answer.
    [[nodiscard]] static std::optional<std::vector<Backdrop>> Backdrops();
    [[nodiscard]] static bool Set(const QString& property, const QVariant& value);
};

}  // namespace tavrix::qt
