#pragma once

#include <string>

#include "dialogs/CurrentDrive.h"
#include "editing/frame/EditingDialog.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

/// A command that exports: opens its dialog, or tells why the image on show cannot be exported. `whyNot` tells that of
/// a path; it gives nothing where there is no reason.
template <class Dialog>
void RunExportCommand(MainViewFrm& view, std::string (*whyNot)(const std::string& path)) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    const std::string refusal = module.CurrentImage.empty()
                                    ? "An image has not been opened yet, nothing to export..."
                                    : whyNot(module.CurrentImage);
    if (!refusal.empty()) {
        module.app.MessageBox({.text = refusal});
        return;
    }
    TouchCurrentDrive(module);
    ShowDialog<Dialog>(module, view);
}

}  // namespace tavrix
