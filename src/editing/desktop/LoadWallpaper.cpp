#include "editing/desktop/LoadWallpaper.h"

#include "core/DesktopSettings.h"
#include "core/UnsavedImage.h"
#include "editing/frame/WorkingImage.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void mnuLoadWallpaper_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy() || !ConfirmDiscard(module)) return;
    const std::string path = GetWallpaperPath(module);
    if (path.empty()) {
        module.app.MessageBox({.text = "Nothing to display, desktop wallpaper is currently not in use..."});
        return;
    }
    TakeWorkingImage(view,
                     {.notRead = "Unable to read current desktop wallpaper file.",
                      .notWritten = "Unable to write wallpaper image to a temporary file."},
                     [&] {
                         view.MainImage.Picture = module.platform.pictures.Load(path);
                         module.DoEvents();
                     });
}

}  // namespace tavrix
