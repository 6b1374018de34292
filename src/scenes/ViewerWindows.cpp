#include "core/WaitFrm.h"
#include "dialogs/WaitCopyFrm.h"
#include "scenes/WindowScenes.h"
#include "viewer/ExitFrm.h"
#include "viewer/MainViewFrm.h"
#include "viewer/OpenFrm.h"

namespace tavrix::scenes {
namespace {

forms::Form& MainView(Scenery& scenery) {
    return scenery.View();
}

forms::Form& Opened(Scenery& scenery, int width, int height) {
    const std::string path = "C:\\Pictures\\" + std::to_string(width) + " wide.bmp";
    PutCard(scenery, path, width, height);
    scenery.View().Deliver(forms::DropEvent{{path}});
    return scenery.View();
}

forms::Form& WithImage(Scenery& scenery) {
    return Opened(scenery, 640, 480);
}

forms::Form& WithLargeImage(Scenery& scenery) {
    return Opened(scenery, 2000, 1500);
}

forms::Form& Waiting(Scenery& scenery) {
    auto& wait = scenery.app.Load<WaitFrm>();
    wait.lblMsg.Caption = "Loading Tavrix, please wait...";
    wait.Show();
    // Where it need not come up at once, it is arranged when it does.
    scenery.app.GetToolkit().RunUntil([&wait] { return wait.lblMsg.Width > 0; });
    return wait;
}

forms::Form& ExitQuestion(Scenery& scenery) {
    return scenery.app.Load<ExitFrm>(scenery.Keep<ExitAnswer>());
}

forms::Form& Opening(Scenery& scenery) {
    scenery.module.config.OpenShowPreview = true;
    return OfView<OpenFrm>(scenery);
}

}  // namespace

std::vector<WindowScene> ViewerWindows() {
    return {
        {"MainViewFrm", MainView, "f"},
        // The button of the full screen may stand above a bar.
        {"MainViewFrm-image", WithImage, "f", true},
        {"MainViewFrm-large-image", WithLargeImage, "f", true},
        {"WaitFrm", Waiting},
        {"WaitCopyFrm", OfModule<WaitCopyFrm>},
        {"ExitFrm", ExitQuestion},
        {"OpenFrm", Opening},
    };
}

}  // namespace tavrix::scenes
