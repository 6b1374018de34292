#include "core/HelpCommands.h"

#include "base/RuntimeError.h"

namespace tavrix {

void InitHelp(MainModule& module) {
    module.HelpFile = module.AppPath + "TAVRIX.HLP";
}

void CloseHelp(const MainModule& module) {
    SkipFailure([&] { module.platform.help.Show(module.HelpFile, HelpCommand::Quit, 0); });
}

void ShowHelpContents(const MainModule& module) {
    SkipFailure([&] { module.platform.help.Show(module.HelpFile, HelpCommand::Contents, 0); });
}

void ShowHelpPage(const MainModule& module, unsigned context) {
    SkipFailure([&] { module.platform.help.Show(module.HelpFile, HelpCommand::Context, context); });
}

}  // namespace tavrix
