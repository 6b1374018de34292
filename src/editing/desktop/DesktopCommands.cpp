#include "editing/desktop/DesktopCommands.h"

#include "editing/desktop/CaptureDesktop.h"
#include "editing/desktop/ClearWallpaper.h"
#include "editing/desktop/DesktopPattern.h"
#include "editing/desktop/LoadWallpaper.h"
#include "editing/desktop/frmSetWallpaper.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void InstallDesktopCommands(MainViewFrm& view) {
    view.menu.mnuCaptureDesktop.Install([&view] { mnuCaptureDesktop_Click(view); });
    view.menu.mnuLoadWallpaper.Install([&view] { mnuLoadWallpaper_Click(view); });
    view.menu.mnuGetDesktopPattern.Install([&view] { mnuGetDesktopPattern_Click(view); });
    view.menu.mnuSetWallpaper.Install([&view] { mnuSetWallpaper_Click(view); });
    view.menu.mnuClearWallpaper.Install([&view] { mnuClearWallpaper_Click(view); });
}

}  // namespace tavrix
