#pragma once

#include <functional>
#include <string>

#include "backends/headless/HeadlessToolkit.h"
#include "core/Main.h"
#include "program/WireProgram.h"
#include "system_faults/HostMachine.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::test {

/// One life of the program on a machine with real files. Boxes are closed as they come.
class MachineProgram {
  public:
    explicit MachineProgram(HostMachine& machine) : MachineProgram(machine, machine.services) {}
    /// On services that stand before some of the machine's.
    MachineProgram(HostMachine& machine, const Services& services)
        : machine_(machine), module(app, services) {
        WireProgram(module, lives_);
    }

    bool Start(const std::string& commandLine) {
        machine_.rest.process.commandLine = commandLine;
        return !Ends([this] { Main(module, lives_); });
    }
    static bool Ends(const std::function<void()>& action) {
        try {
            action();
        } catch (const headless::ProcessEnded&) {
            return true;
        }
        return false;
    }
    MainViewFrm& View() { return *app.Loaded<MainViewFrm>(); }

    void ExpectQuestion(const std::string& text) {
        toolkit.Expect({.text = text,
                        .icon = forms::BoxIcon::Question,
                        .buttons = forms::BoxButtons::YesNo,
                        .reply = forms::Answer::Yes});
    }

    bool gaveUp = false;  ///< the user, before anything was to be written
    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};

  private:
    HostMachine& machine_;

  public:
    MainModule module;

  private:
    Lives lives_;
};

}  // namespace tavrix::test
