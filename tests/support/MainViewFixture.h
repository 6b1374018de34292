#pragma once

#include "program/WireProgram.h"
#include "support/ProgramFixture.h"
#include "support/QuietMachine.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::test {

/// A program that starts with the main view; nothing opens at the start, unless a test says so.
class MainViewFixture : public ProgramFixture {
  protected:
    MainViewFixture() {
        MakeQuiet(platform);
        WireProgram(module, lives);
    }

    /// Starts the program with a command line; false when it ended.
    bool Start(const std::string& commandLine = "") {
        platform.process.commandLine = commandLine;
        return !Ends([this] { Main(module, lives); });
    }

    /// The main view, which must be there.
    MainViewFrm& View() { return *app.Loaded<MainViewFrm>(); }

    /// The user presses a key; whether the process ended.
    bool Press(int keyCode, int shift = 0) {
        return Ends([&] { View().Deliver(forms::KeyEvent{true, keyCode, shift, nullptr}); });
    }

    /// The user chooses a menu entry; whether the process ended.
    bool Choose(forms::Menu& entry) {
        return Ends([&] { entry.Deliver(forms::ClickEvent{}); });
    }
};

}  // namespace tavrix::test
