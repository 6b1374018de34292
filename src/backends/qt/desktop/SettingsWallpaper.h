#pragma once

#include <QString>
#include <QStringList>

#include "backends/qt/desktop/WallpaperKeeper.h"

namespace tavrix::qt {

/// GNOME and the desktops that share its settings, by their own tool. The light and the dark appearance get the same
/// picture; what is told is the one of the appearance in use. The desktop watches the file itself.
class GnomeWallpaper final : public WallpaperKeeper {
  public:
    [[nodiscard]] bool Show(const std::string& file, bool tiled) override;
    [[nodiscard]] bool Clear() override;
    [[nodiscard]] std::optional<std::string> Current() override;

  private:
    /// What the tool prints; nothing where it is missing or fails.
    [[nodiscard]] static std::optional<QString> Settings(const QStringList& arguments);
    [[nodiscard]] static std::optional<QString> Get(const char* schema, const char* key);
    [[nodiscard]] static bool Set(const char* key, const QString& text);
    [[nodiscard]] static bool SetPictures(const QString& address);
};

}  // namespace tavrix::qt
