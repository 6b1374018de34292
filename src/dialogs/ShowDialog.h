#pragma once

#include <utility>

#include "core/MainModule.h"

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

}  // namespace tavrix
