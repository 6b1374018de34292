#include "scenes/Scenery.h"

#include "program/WireProgram.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::scenes {

Scenery::Scenery(forms::Toolkit& toolkit) : app(toolkit), module(app, platform.services) {
    platform.store.Set("EXEPath", "C:\\Tavrix\\");
    platform.store.Set("ProgramRun", "1");
    platform.store.Set("Show Tips at Startup", "0");
    platform.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
    WireProgram(module, lives);
}

MainViewFrm& Scenery::Start(const std::string& path) {
    platform.process.commandLine = path;
    Main(module, lives);
    module.DoEvents();
    return View();
}

MainViewFrm& Scenery::View() {
    return *app.Loaded<MainViewFrm>();
}

}  // namespace tavrix::scenes
