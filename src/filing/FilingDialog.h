#pragma once

#include <utility>

#include "core/MainModule.h"
#include "dialogs/CurrentDrive.h"
#include "platform/forms/Application.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

/// A command that opens a dialog about files: nothing while another operation runs; else a look at the current drive, and
/// the dialog above the main view. The arguments are those of its constructor.
template <class Dialog, class... Arguments>
void RunFilingDialog(MainViewFrm& view, Arguments&&... arguments) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    forms::BusyGuard busy(module.Screen());
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    TouchCurrentDrive(module);
    auto& dialog = module.app.Load<Dialog>(std::forward<Arguments>(arguments)...);
    busy.Release();
    dialog.ShowModal();
}

}  // namespace tavrix
