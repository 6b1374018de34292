#pragma once

#include <utility>

#include "platform/forms/Application.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

/// A command of the main view that opens a dialog about the files of shows: loaded under the hourglass, which is over when
/// it is shown. The arguments are those of its constructor, behind the module. Whether it was shown.
template <class Dialog, class... Arguments>
bool ShowLibraryDialog(MainViewFrm& view, Arguments&&... arguments) {
    MainModule& module = view.Module();
    if (module.Busy()) return false;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    auto& dialog = module.app.Load<Dialog>(module, std::forward<Arguments>(arguments)...);
    busy.Release();
    dialog.ShowModal();
    return true;
}

}  // namespace tavrix
