#include "core/SystemDialogs.h"

#include "base/RuntimeError.h"

namespace tavrix {
namespace {

void Open(const MainModule& module, const std::string& panel, const std::string& name) {
    bool started = false;
    SkipFailure(
        [&] { started = module.platform.shell.Run("rundll32.exe shell32.dll,Control_RunDLL " + panel); });
    if (started) return;
    module.app.MessageBox(
        {.text = "An error occurred while trying to open the " + name + " properties dialog..."});
}

}  // namespace

void OpenDisplayProperties(const MainModule& module) {
    Open(module, "desk.cpl,@0,3", "display");
}

void OpenMultimediaProperties(const MainModule& module) {
    Open(module, "mmsys.cpl", "multimedia");
}

}  // namespace tavrix
