#include "editing/DesktopCommands.h"

#include "editing/CaptureDesktop.h"
#include "editing/ClearWallpaper.h"
#include "editing/DesktopPattern.h"
#include "editing/LoadWallpaper.h"
#include "editing/frmSetWallpaper.h"
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
