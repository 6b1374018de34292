#pragma once

#include <string>
#include <utility>

#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

/// The first file in the root of the current drive; empty where there is none or the drive cannot be read. It wakes a
/// drive that sleeps before the lists of a dialog need it.
[[nodiscard]] std::string FirstFileOfCurrentDrive(const MainModule& module);

/// A command that opens a dialog about files: nothing while another operation runs; else a look at the current drive, and
/// the dialog above the main view. The arguments are those of its constructor.
template <class Dialog, class... Arguments>
void RunFilingDialog(MainViewFrm& view, Arguments&&... arguments) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    forms::BusyGuard busy(module.Screen());
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    static_cast<void>(FirstFileOfCurrentDrive(module));
    auto& dialog = module.app.Load<Dialog>(std::forward<Arguments>(arguments)...);
    busy.Release();
    dialog.ShowModal();
}

}  // namespace tavrix
