#include <utility>

#include "app/Composition.h"
#include "app/HostPlatform.h"
#include "backends/linux/EndSignals.h"
#include "backends/linux/SizeLimit.h"
#include "backends/qt/QtProcess.h"
#include "backends/qt/SessionEnd.h"
#include "backends/qt/x11/X11.h"

int main(int argc, char** argv) {
    const tavrix::EndSignals endSignals;
    tavrix::SurviveSizeLimit();
    // It is answered while the toolkit starts.
    auto frames = tavrix::qt::x11::AskForFramesEarly();
    tavrix::HostPlatform host({argv + 1, argv + argc});
    host.PrefetchPicture(tavrix::HostPlatform::Size::Large);
    const tavrix::qt::QtProcess windowSystem(argv[0]);
    host.PrefetchPicture(tavrix::HostPlatform::Size::Small);
    tavrix::Composition program(host, std::move(frames));
    const auto end = [&] {
        endSignals.LetThrough();
        program.EndFromOutside();
    };
    const tavrix::qt::SessionEnd sessionEnd(endSignals.Descriptor(),
                                            {.save = [&] { program.Save(); }, .end = end});
    program.Run();
    return 0;
}
