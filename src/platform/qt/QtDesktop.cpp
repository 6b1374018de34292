#include "platform/qt/QtDesktop.h"

#include <algorithm>
#include <utility>

#include "platform/base/RuntimeError.h"
#include "platform/qt/RootWallpaper.h"
#include "platform/qt/X11.h"
#include "platform/qt/X11Screen.h"

namespace tavrix::qt {

namespace {

constexpr const char* DesktopKey = "Control Panel\\desktop";

}  // namespace

QtDesktop::QtDesktop(Registry& registry, Paths paths) : registry_(registry), paths_(std::move(paths)) {}
QtDesktop::~QtDesktop() = default;

std::optional<Surface> QtDesktop::Capture() {
    return x11::CaptureScreen();
}

void QtDesktop::SetWallpaper(const std::string& path) {
    const std::string file = path.empty() ? path : paths_.toHost(path);
    const bool tiled = WallpaperIsTiled();
    const bool taken = std::ranges::any_of(Keepers(), [&](const auto& keeper) {
        return path.empty() ? keeper->Clear() : keeper->Show(file, tiled);
    });
    if (!taken) throw RuntimeError(ErrorNumber::DeviceUnavailable);
    registry_.Write(DesktopKey, "Wallpaper", path);
}

std::optional<std::string> QtDesktop::CurrentWallpaper() {
    for (const auto& keeper : Keepers()) {
        const std::optional<std::string> file = keeper->Current();
        if (file) return file->empty() ? *file : paths_.toDrive(*file);
    }
    return std::nullopt;
}

const std::vector<std::unique_ptr<WallpaperKeeper>>& QtDesktop::Keepers() {
    if (keepers_.empty()) keepers_.push_back(std::make_unique<RootWallpaper>());
    return keepers_;
}

bool QtDesktop::WallpaperIsTiled() {
    const std::optional<RegistryValue> value = registry_.Read(DesktopKey, "TileWallpaper");
    return value && value->text.substr(0, value->text.find('\0')) == "1";
}

}  // namespace tavrix::qt
