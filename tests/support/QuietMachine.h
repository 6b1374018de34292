#pragma once

#include "backends/headless/HeadlessServices.h"

namespace tavrix::test {

/// A machine on which the program is installed and has run before, and shows no tip and no dialog when it starts.
inline void MakeQuiet(headless::HeadlessServices& machine) {
    machine.store.Set("EXEPath", "C:\\Tavrix\\");
    machine.store.Set("ProgramRun", "1");
    machine.store.Set("Show Tips at Startup", "0");
    const ProfileEntry noDialog{"StartupDialog", "0"};
    machine.profile.Write("Viewer", {&noDialog, 1}, "C:\\Tavrix\\tavrix.ini");
}

}  // namespace tavrix::test
