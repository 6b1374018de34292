#include "backends/qt/desktop/QtDesktop.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "backends/qt/desktop/FileManagerWallpaper.h"
#include "backends/qt/desktop/PlasmaWallpaper.h"
#include "backends/qt/desktop/PortalScreen.h"
#include "backends/qt/desktop/PortalWallpaper.h"
#include "backends/qt/desktop/RootWallpaper.h"
#include "backends/qt/desktop/SettingsWallpaper.h"
#include "backends/qt/desktop/XfceWallpaper.h"
#include "backends/qt/x11/X11Screen.h"
#include "base/RuntimeError.h"

namespace tavrix::qt {

namespace {

/// The names in XDG_CURRENT_DESKTOP of those that are at home in the same settings.
constexpr std::array<const char*, 5> GnomeNames{"GNOME", "Unity", "Budgie", "Pantheon", "GNOME-Flashback"};
constexpr std::array<const char*, 2> CinnamonNames{"X-Cinnamon", "Cinnamon"};
/// Those that draw over the root window themselves, and whose settings are not known.
constexpr std::array<const char*, 6> CoveringNames{"Enlightenment", "Deepin", "DDE", "UKUI", "Lumina", "TDE"};

bool IsOneOf(const QStringList& names, std::span<const char* const> wanted) {
    return std::ranges::any_of(
        wanted, [&](const char* name) { return names.contains(QLatin1String(name), Qt::CaseInsensitive); });
}

}  // namespace

QtDesktop::QtDesktop(Registry& registry, Paths paths) : registry_(registry), paths_(std::move(paths)) {}
QtDesktop::~QtDesktop() = default;

std::optional<Surface> QtDesktop::Capture() {
    std::optional<Surface> screen = x11::CaptureScreen();
    return screen ? std::move(screen) : CaptureByPortal();
}

void QtDesktop::SetWallpaper(const std::string& path) {
    const std::string file = path.empty() ? path : paths_.toHost(path);
    const bool tiled = WallpaperIsTiled();
    const bool taken = std::ranges::any_of(Keepers(), [&](const auto& keeper) {
        return path.empty() ? keeper->Clear() : keeper->Show(file, tiled);
    });
    if (!taken) throw RuntimeError(ErrorNumber::DeviceUnavailable);
    registry_.Write(Key, WallpaperName, path);
}

std::optional<std::string> QtDesktop::CurrentWallpaper() {
    for (const auto& keeper : Keepers()) {
        const std::optional<std::string> file = keeper->Current();
        if (file) return file->empty() ? *file : paths_.toDrive(*file);
    }
    return std::nullopt;
}

const std::vector<std::unique_ptr<WallpaperKeeper>>& QtDesktop::Keepers() {
    if (!keepers_.empty()) return keepers_;
    const QStringList names = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'));
    const auto add = [this](std::unique_ptr<WallpaperKeeper> keeper) {
        keepers_.push_back(std::move(keeper));
    };
    using FileManager = FileManagerWallpaper;
    if (IsOneOf(names, GnomeNames)) add(std::make_unique<SettingsWallpaper>(GnomeBackground));
    if (IsOneOf(names, CinnamonNames)) add(std::make_unique<SettingsWallpaper>(CinnamonBackground));
    if (IsOneOf(names, std::array{"MATE"})) add(std::make_unique<SettingsWallpaper>(MateBackground));
    if (IsOneOf(names, std::array{"LXQt"})) add(std::make_unique<FileManager>(FileManager::Kind::Lxqt));
    if (IsOneOf(names, std::array{"LXDE"})) add(std::make_unique<FileManager>(FileManager::Kind::Lxde));
    if (IsOneOf(names, std::array{"KDE"})) add(std::make_unique<PlasmaWallpaper>());
    if (IsOneOf(names, std::array{"XFCE"})) add(std::make_unique<XfceWallpaper>());
    // A desktop of its own kind covers the root window, which is all that a mere window manager has.
    const bool rootIsSeen = keepers_.empty() && !IsOneOf(names, CoveringNames) && x11::ShowsDesktop();
    if (rootIsSeen) add(std::make_unique<RootWallpaper>());
    add(std::make_unique<PortalWallpaper>());
    return keepers_;
}

bool QtDesktop::WallpaperIsTiled() {
    const std::optional<RegistryValue> value = registry_.Read(Key, "TileWallpaper");
    return value && value->text.substr(0, value->text.find('\0')) == "1";
}

}  // namespace tavrix::qt
