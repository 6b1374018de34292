#include "scenes/WindowScenes.h"
#include "settings/SysInfoFrm.h"
#include "settings/frmAbout.h"
#include "settings/frmAdvanced.h"
#include "settings/frmPreferences.h"
#include "settings/frmTip.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::scenes {
namespace {

forms::Form& Tip(Scenery& scenery) {
    scenery.platform.disks.PutFile("C:\\Tavrix\\TIPOFDAY.DAT",
                                   "That F1 opens the help page of the window that you are in? The help "
                                   "window may stay open beside it while you "
                                   "work.\n");
    return OfModule<frmTip>(scenery);
}

/// The sea at an hour, from 0 to 24.
std::function<forms::Form&(Scenery&)> AboutAt(int hour) {
    return [hour](Scenery& scenery) -> forms::Form& {
        auto& about = scenery.app.Load<frmAbout>(scenery.module);
        const double day = hour / 24.0;
        about.ShowMoment({day, 0.3 + day / 2, 20 * day});
        return about;
    };
}

forms::Form& Information(Scenery& scenery) {
    scenery.platform.disks.AddDrive('D', DriveType::CdRom);
    scenery.platform.system.memory = {17'179'869'184, 9'663'676'416, 19'327'352'832, 11'811'160'064};
    return OfModule<SysInfoFrm>(scenery);
}

}  // namespace

std::vector<WindowScene> SettingsWindows() {
    return {
        {"frmPreferences", OfView<frmPreferences>},
        {"frmAdvanced", OfModule<frmAdvanced>},
        {"frmTip", Tip},
        {"frmAbout", OfModule<frmAbout>},
        {"frmAbout-1h", AboutAt(1)},
        {"frmAbout-6h", AboutAt(6)},
        {"frmAbout-12h", AboutAt(12)},
        {"frmAbout-18h", AboutAt(18)},
        {"SysInfoFrm", Information},
    };
}

}  // namespace tavrix::scenes
