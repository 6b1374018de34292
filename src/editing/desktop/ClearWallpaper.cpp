#include "editing/desktop/ClearWallpaper.h"

#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/DesktopSettings.h"
#include "editing/desktop/ChangeWallpaper.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void mnuClearWallpaper_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const std::string path = GetWallpaperPath(module);
    if (path.empty()) {
        module.app.MessageBox({.text = "Nothing to clear, desktop wallpaper is currently not in use..."});
        return;
    }
    const forms::Answer answer = module.app.MessageBox(
        {.text = "Stop displaying the following desktop wallpaper file?" + std::string(NewLine2) + path,
         .icon = forms::BoxIcon::Question,
         .buttons = forms::BoxButtons::YesNo});
    if (answer == forms::Answer::Yes && !ChangeWallpaper(module, "")) TellNoWallpaper(module);
}

}  // namespace tavrix
