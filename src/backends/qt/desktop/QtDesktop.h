#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "backends/qt/desktop/WallpaperKeeper.h"
#include "platform/services/Desktop.h"
#include "platform/services/Registry.h"

namespace tavrix::qt {

/// The desktop on Linux. X servers show their screen themselves, Wayland desktops by the portal. The wallpaper belongs
/// to whichever of the known desktops runs, else to the portal or the X server's root window.
class QtDesktop final : public Desktop {
  public:
    /// The registry's key and value that name the wallpaper.
    static constexpr const char* Key = "Control Panel\\desktop";
    static constexpr const char* WallpaperName = "Wallpaper";

    /// How drive paths and host paths become each other. Both throw as the file service does.
    struct Paths {
        std::function<std::string(const std::string&)> toHost;
        std::function<std::string(const std::string&)> toDrive;
    };

    /// `registry` holds what has been set; see DesktopRegistry for what it shows of the desktop.
    QtDesktop(Registry& registry, Paths paths);
    ~QtDesktop() override;
    QtDesktop(const QtDesktop&) = delete;
    QtDesktop& operator=(const QtDesktop&) = delete;

    [[nodiscard]] std::optional<Surface> Capture() override;
    void SetWallpaper(const std::string& path) override;

    /// The path of the file that the desktop shows, empty for none; nothing where it does not tell.
    [[nodiscard]] std::optional<std::string> CurrentWallpaper();

  private:
    /// Those of this desktop, the one to ask first at the front. They are found out when they are first needed.
    [[nodiscard]] const std::vector<std::unique_ptr<WallpaperKeeper>>& Keepers();
    [[nodiscard]] bool WallpaperIsTiled();

    Registry& registry_;
    Paths paths_;
    std::vector<std::unique_ptr<WallpaperKeeper>> keepers_;
};

}  // namespace tavrix::qt
