#pragma once

#include <utility>

#include "base/RuntimeError.h"
#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

/// Loads a dialog under the hourglass, which is over when it is shown. The arguments are those of its constructor.
template <class Dialog, class... Arguments>
void ShowDialog(const MainModule& module, Arguments&&... arguments) {
    forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    auto& dialog = module.app.Load<Dialog>(std::forward<Arguments>(arguments)...);
    busy.Release();
    dialog.ShowModal();
}

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
