#pragma once

#include <QString>

#include "backends/qt/desktop/WallpaperKeeper.h"

namespace tavrix::qt {

/// Where a desktop has its background among its settings.
struct BackgroundSettings {
    const char* schema;
    const char* picture;          ///< the key of the picture
    const char* darkPicture;      ///< the key of that for a dark appearance; null: there is none
    bool paths;                   ///< pictures are paths, and otherwise addresses
    bool canBeNone;               ///< the options can be "none"; otherwise no picture is one without a name
    const char* interfaceSchema;  ///< tells the appearance in use by "color-scheme"; null: nothing does
};

inline constexpr BackgroundSettings GnomeBackground{
    "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", false, true,
    "org.gnome.desktop.interface"};
inline constexpr BackgroundSettings CinnamonBackground{
    "org.cinnamon.desktop.background", "picture-uri", nullptr, false, true, nullptr};
inline constexpr BackgroundSettings MateBackground{
    "org.mate.background", "picture-filename", nullptr, true, false, nullptr};

/// Desktops that keep their background in GNOME's kind of settings, by the tool for those. The light and the dark
/// appearance get the same picture; what is told is the one of the appearance in use.
class SettingsWallpaper final : public WallpaperKeeper {
  public:
    explicit SettingsWallpaper(const BackgroundSettings& names) : names_(names) {}

    [[nodiscard]] bool Show(const std::string& file, bool tiled) override;
    [[nodiscard]] bool Clear() override;
    [[nodiscard]] std::optional<std::string> Current() override;

  private:
    [[nodiscard]] static std::optional<QString> Get(const char* schema, const char* key);
    [[nodiscard]] bool Set(const char* key, const QString& text) const;
    [[nodiscard]] bool SetPictures(const QString& picture) const;

    BackgroundSettings names_;
};

}  // namespace tavrix::qt
