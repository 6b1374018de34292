#include "backends/headless/MemoryIdleStart.h"
#include "scenes/WindowScenes.h"
#include "shows/saver/SaverSetup.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/frmToolbar.h"

namespace tavrix::scenes {
namespace {

void ChooseShow(Scenery& scenery) {
    constexpr const char* show = "C:\\Pictures\\Holidays & more\\the second of the shows of the beach.tvs";
    scenery.platform.disks.PutFile(show,
                                   "\"Tavrix Slide Show\"\r\n\"Version "
                                   "1.5\"\r\n1\r\n\"C:\\waves.wav\"\r\n0\r\n0\r\n60\r\n0\r\n0\r\n0\r\n0"
                                   "\r\n0\r\n");
    scenery.platform.store.Set("CurrentSaver", show);
}

forms::Form& WithoutShow(Scenery& scenery) {
    scenery.platform.store.Set("CurrentSaver", "");
    return OfModule<SaverSetup>(scenery);
}

forms::Form& WithPassword(Scenery& scenery) {
    ChooseShow(scenery);
    scenery.module.OsPlatformId = 1;
    return OfModule<SaverSetup>(scenery);
}

forms::Form& StartingByItself(Scenery& scenery) {
    ChooseShow(scenery);
    scenery.module.OsPlatformId = 2;
    auto& idleStart = scenery.Keep<headless::MemoryIdleStart>();
    idleStart.minutes = 60;
    return scenery.app.Load<SaverSetup>(scenery.module, SaverSurroundings{.idleStart = &idleStart});
}

forms::Form& Stage(Scenery& scenery) {
    MainModule& module = scenery.module;
    module.SlideShowActive = true;
    module.config.ShowToolbar = module.config.ShowFilenames = module.config.ShowDescription = true;
    module.show.EraseSlides();
    module.show.SlideFiles.Set(0, "C:\\Pictures\\small.bmp");
    module.show.SlideDescriptions.Set(0, "The test card in its full size, which nobody looks at for long");
    return OfModule<FullViewFrm>(scenery);
}

forms::Form& Navigator(Scenery& scenery) {
    Stage(scenery);
    return *scenery.app.Loaded<frmToolbar>();
}

}  // namespace

std::vector<WindowScene> SaverWindows() {
    return {
        {"SaverSetup", StartingByItself, "w"},      {"SaverSetup-no-file", WithoutShow, "w"},
        {"SaverSetup-password", WithPassword, "w"}, {"FullViewFrm", Stage, "", true},
        {"frmToolbar", Navigator, "", false, true},
    };
}

}  // namespace tavrix::scenes
