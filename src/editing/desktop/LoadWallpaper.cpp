#include "editing/desktop/LoadWallpaper.h"

#include <optional>
#include <string>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/DesktopSettings.h"
#include "core/UnsavedImage.h"
#include "editing/frame/WorkingImage.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr WorkingImageWords Words{.notRead = "Unable to read current desktop wallpaper file.",
                                  .notWritten = "Unable to write wallpaper image to a temporary file."};

/// The wallpaper's picture. A failure is told, and leaves what is on show alone.
std::optional<Picture> Read(const MainModule& module, const std::string& path) {
    forms::BusyGuard busy(module.Screen());
    try {
        return module.platform.pictures.Load(path);
    } catch (const RuntimeError& error) {
        busy.Release();
        module.app.MessageBox({.text = Words.notRead + std::string(NewLine2) + error.Description() + "...",
                               .icon = forms::BoxIcon::Stop});
        return std::nullopt;
    }
}

}  // namespace

void mnuLoadWallpaper_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy() || !ConfirmDiscard(module)) return;
    const std::string path = GetWallpaperPath(module);
    if (path.empty()) {
        module.app.MessageBox({.text = "Nothing to display, desktop wallpaper is currently not in use..."});
        return;
    }
    std::optional<Picture> picture = Read(module, path);
    if (!picture) return;
    TakeWorkingImage(view, Words, [&] {
        view.MainImage.Picture = std::move(*picture);
        module.DoEvents();
    });
}

}  // namespace tavrix
