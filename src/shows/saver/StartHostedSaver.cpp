#include "shows/saver/StartHostedSaver.h"

#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Settings.h"
#include "core/StartupChecks.h"
#include "platform/services/DrivePath.h"
#include "shows/files/LoadShowFile.h"
#include "shows/saver/CurrentSaver.h"
#include "shows/stage/FullViewFrm.h"

namespace tavrix {
namespace {

void Prepare(MainModule& module) {
    SkipFailure([&] { module.AppPath = WithBackslash(module.platform.process.Path()); });
    SkipFailure([&] { LoadSettings(module); });
    SkipFailure([&] { ProbeMultimedia(module); });
    SkipFailure([&] { ReadOsVersion(module); });
    module.SlideShowActive = true;
    module.StartedAsShow = true;
    module.ScreenSaverMode = true;
}

}  // namespace

std::string StartHostedSaver(MainModule& module, const std::string& path, HostedSaver hosted) {
    Prepare(module);
    std::string show = path;
    if (show.empty()) SkipFailure([&] { show = module.platform.store.Get(CurrentSaver, ""); });
    if (show.empty()) return "no slide show has been chosen in the screen saver settings";
    show = NormalPath(show);
    ShowRecord record{.slides = {}, .options = module.config};
    LoadShowRecord(module, show, record);
    module.config.SetShowOptions(record.options);
    module.show.TakeSlides(std::move(record.slides));
    if (module.show.Empty()) return "there are no pictures in " + show;
    SkipFailure([&] { module.platform.files.ChangeDrive(Left(show, 2)); });
    SkipFailure([&] { module.platform.files.ChangeFolder(FolderOf(show)); });
    module.app.Load<FullViewFrm>(module, hosted).Show();
    return {};
}

}  // namespace tavrix
