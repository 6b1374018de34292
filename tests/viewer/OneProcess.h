#pragma once

#include <functional>
#include <string>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "core/Main.h"
#include "program/WireProgram.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::test {

/// One life of the program with the main view, on a machine that outlives it. Boxes are closed as they come.
class OneProcess {
  public:
    explicit OneProcess(headless::HeadlessServices& machine) : machine_(machine) {
        machine.process.ended = false;
        WireProgram(module, lives_);
        // What a start shows where it cannot read that it is not to.
        for (const char* name : {"frmTip", "frmAbout"})
            toolkit.OnModal(name, [this, name] { Unload(name); });
    }

    /// Runs something that the user does; whether the process ended.
    static bool Ends(const std::function<void()>& action) {
        try {
            action();
        } catch (const headless::ProcessEnded&) {
            return true;
        }
        return false;
    }
    bool Start(const std::string& commandLine = "") {
        machine_.process.commandLine = commandLine;
        return !Ends([this] { Main(module, lives_); });
    }
    /// The user closes the window.
    bool Close() {
        return Ends([this] { View().Deliver(forms::CloseEvent{}); });
    }
    MainViewFrm& View() { return *app.Loaded<MainViewFrm>(); }

    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};

  private:
    void Unload(const std::string& name) {
        for (int i = 0; i < app.FormCount(); ++i) {
            if (app.FormAt(i).Name() != name) continue;
            app.Unload(app.FormAt(i));
            return;
        }
    }

    headless::HeadlessServices& machine_;

  public:
    MainModule module{app, machine_.services};

  private:
    Lives lives_;
};

}  // namespace tavrix::test
