#include "shows/saver/SaverCommands.h"

#include <utility>

#include "shows/saver/SaverSetup.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void InstallSaver(MainModule& module, Lives& lives, SaverSurroundings surroundings) {
    lives.ShowSaverSetup = [&module, surroundings = std::move(surroundings)] {
        module.app.Load<SaverSetup>(module, surroundings).ShowModal();
    };
}

void InstallSaverCommands(MainViewFrm& view) {
    view.menu.mnuSetScreenSaver.Install([&view] { mnuSetScreenSaver_Click(view); });
    view.menu.mnuSSaverSettings.Install([&view] { mnuSSaverSettings_Click(view); });
}

void mnuSetScreenSaver_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    if (module.platform.shell.Run("rundll32.exe shell32.dll,Control_RunDLL desk.cpl,@0,1")) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    module.app.MessageBox(
        {.text = "An error occurred while trying to open the screen saver properties dialog..."});
}

void mnuSSaverSettings_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    static_cast<void>(module.platform.shell.Run(module.AppPath + "TAVRIX.EXE /C"));
    if (module.config.TopMostWindow) view.SetTopmost(false);  // the settings are not to open below it
}

}  // namespace tavrix
