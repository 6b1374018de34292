#pragma once

#include <functional>
#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// The lives that a process can lead, as the composition wires them to their windows. All of them are set before Main
/// is called.
struct Lives {
    /// Shows the main view and returns.
    std::function<void()> ShowMainView;
    /// Reads a show into the shared state, with all its messages; false when it holds no slide.
    std::function<bool(const std::string& path)> LoadShowFile;
    /// Shows the stage, in the place of one that is there, and returns.
    std::function<void()> ShowStage;
    /// Ends the stage that is there, before what it plays is replaced.
    std::function<void()> EndStage = [] {};
    /// Shows the settings of the screen saver and returns when they are closed.
    std::function<void()> ShowSaverSetup;
};

/// The process's entry. It returns to the message loop after showing a window, or ends the process.
void Main(MainModule& module, const Lives& lives);

}  // namespace tavrix
