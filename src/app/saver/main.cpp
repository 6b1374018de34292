// The show as a module of XScreenSaver: it draws into the window that it is given, and leaves everything else to that.

#include <QSocketNotifier>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "app/Composition.h"
#include "app/HostPlatform.h"
#include "app/saver/SaverArguments.h"
#include "backends/linux/EndSignals.h"
#include "backends/linux/Neighbour.h"
#include "backends/qt/QtProcess.h"
#include "backends/qt/x11/HostWindow.h"

namespace {

constexpr const char* Usage =
    "Usage: tavrix-saver [-root] [-window-id NUMBER] [-show FILE.tvs]\n"
    "Plays a slide show of Tavrix as a module of XScreenSaver, in the window that XSCREENSAVER_WINDOW "
    "names.\n"
    "Without a show it is the one that the screen saver settings of Tavrix name.\n";

constexpr int WrongUse = 2;

int Fail(const std::string& reason) {
    std::fprintf(stderr, "tavrix-saver: %s\n", reason.c_str());
    return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace tavrix;
    const std::vector<std::string> words(argv + 1, argv + argc);
    const auto arguments = ReadSaverArguments(words, EnvironmentValue("XSCREENSAVER_WINDOW"));
    if (!arguments) {
        std::fputs(Usage, stderr);
        return WrongUse;
    }
    const EndSignals endSignals;
    const std::string self = HostPaths::FromEnvironment().executable;
    std::vector<std::string> shows;
    if (!arguments->show.empty()) shows.push_back(arguments->show);
    HostPlatform host(shows, NeighbourOf(self, "tavrix"));
    setenv("QT_QPA_PLATFORM", "xcb", 1);  // that is where its window is
    unsetenv("SESSION_MANAGER");          // it comes and goes with its window, not with the session
    const qt::QtProcess windowSystem(argv[0]);
    QSocketNotifier ended(endSignals.Descriptor(), QSocketNotifier::Read);
    QObject::connect(&ended, &QSocketNotifier::activated, &ended, [&host] { host.process.End(); });

    qt::x11::HostWindow window(arguments->window.value_or(qt::x11::WindowOfRoot()));
    if (window.Gone()) return Fail("there is no such window");
    window.onGone = [&host] { host.process.End(); };
    Composition program(host);
    const bool first = !arguments->preview && qt::x11::TakeMark("_TAVRIX_SAVER");
    return Fail(program.RunInHost(window, host.process.CommandLine(), {.first = first}));
}
