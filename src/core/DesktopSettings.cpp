#include "core/DesktopSettings.h"

#include "base/Rounding.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"

namespace tavrix {
namespace {

constexpr const char* None = "(None)";

}  // namespace

std::string GetDesktopPattern(const MainModule& module) {
    std::string pattern;
    SkipFailure([&] {
        const std::string folder = GetWindowsFolder(module);
        if (folder.empty()) return;
        pattern = Trim(module.platform.profile.Read("Desktop", folder + "win.ini").Read("Pattern"));
    });
    return pattern == None ? "" : pattern;
}

std::string GetWallpaperPath(const MainModule& module) {
    std::string path;
    SkipFailure([&] {
        const auto value = module.platform.registry.Read(DesktopKey, "Wallpaper");
        if (value) path = value->text.substr(0, value->text.find('\0'));
    });
    return path == None ? "" : path;
}

std::int32_t GetChromeHeight(const MainModule& module) {
    const forms::Screen& screen = module.Screen();
    const int pixels =
        screen.Metric(forms::SystemMetric::MenuBarHeight) + screen.Metric(forms::SystemMetric::CaptionHeight);
    return RoundToLong(static_cast<float>(pixels) * screen.TwipsPerPixelY());
}

}  // namespace tavrix
