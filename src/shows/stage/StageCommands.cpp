#include "shows/stage/StageCommands.h"

#include "shows/stage/FullViewFrm.h"
#include "viewer/AnimatedGif.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void InstallStage(MainModule& module, Lives& lives) {
    lives.EndStage = [&module] { EndStage(module); };
    lives.ShowStage = [&module] {
        EndStage(module);
        auto& stage = module.app.Load<FullViewFrm>(module);
        if (!stage.Unloaded()) stage.Show();
    };
}

void EndStage(MainModule& module) {
    if (auto* stage = module.app.Loaded<FullViewFrm>()) module.app.Unload(*stage);
}

void InstallStageCommands(MainViewFrm& view) {
    view.menu.mnuFullScreen.Install([&view] { mnuFullScreen_Click(view); });
    view.menu.mnuAnimatedGIF.Install([&view] {
        mnuAnimatedGIF_Click(view, [&view](const std::string&) {
            view.Module().StageImageAnimated = true;
            ViewFullScreen(view);
            view.Module().StageImageAnimated = false;
        });
    });
}

void ViewStageImage(MainModule& module) {
    EndStage(module);
    module.SlideShowActive = false;
    module.app.Load<FullViewFrm>(module).ShowModal();
}

void ViewFullScreen(MainViewFrm& view) {
    MainModule& module = view.Module();
    EndStage(module);
    view.selection.Drop();
    module.StageImage = module.CurrentImage;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    ViewStageImage(module);
}

void mnuFullScreen_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    if (module.CurrentImage.empty()) {
        const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
        module.app.MessageBox({.text = "An image has not been opened yet, unable to view full screen..."});
        return;
    }
    module.DoEvents();
    ViewFullScreen(view);
}

}  // namespace tavrix
