#include "editing/desktop/ChangeWallpaper.h"

#include "base/RuntimeError.h"

namespace tavrix {

bool ChangeWallpaper(const MainModule& module, const std::string& path) {
    try {
        module.platform.desktop.SetWallpaper(path);
    } catch (const RuntimeError& error) {
        return error.Number() != ErrorNumber::DeviceUnavailable;
    }
    return true;
}

void TellNoWallpaper(const MainModule& module) {
    module.app.MessageBox(
        {.text = "Unable to change the desktop wallpaper, this desktop does not let a program do that...",
         .icon = forms::BoxIcon::Exclamation});
}

}  // namespace tavrix
