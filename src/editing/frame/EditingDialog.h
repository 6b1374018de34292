#pragma once

#include "base/RuntimeError.h"
#include "core/MainModule.h"
#include "dialogs/ShowDialog.h"
#include "platform/forms/Application.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

/// A command of the Edit menu that opens a dialog: nothing while another operation runs or without an image; else the
/// selection is wiped and the dialog shown above the view. Its Form_Load ends the hourglass.
template <class Dialog>
void RunEditDialog(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    const forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    SkipFailure([&] { view.selection.Erase(); });
    view.selection.SelectionShown = false;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    module.app.Load<Dialog>(view).ShowModal();
}

}  // namespace tavrix
