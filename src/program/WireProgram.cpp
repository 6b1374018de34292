#include "program/WireProgram.h"

#include "editing/Commands.h"
#include "filing/Commands.h"
#include "filing/floppies/Staging.h"
#include "lists/Commands.h"
#include "shows/Commands.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/library/LibraryCommands.h"
#include "shows/stage/StageCommands.h"
#include "viewer/Commands.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void WireProgram(MainModule& module, Lives& lives) {
    InstallShowCommands(module, lives);
    lives.ShowMainView = [&module, &lives] {
        PutBackSetAside(module);
        LoadMainView(module, lives).Show();
    };

    const auto showHelp = [&module](const std::string& file, unsigned context) {
        module.platform.help.Show(file, HelpCommand::Context, context);
    };
    module.app.OnHelp = [&module, showHelp](const forms::BoxRequest& request) {
        showHelp(request.helpFile.empty() ? module.HelpFile : request.helpFile, request.helpContext);
    };
    module.app.OnHelpKey = [&module, showHelp](unsigned context) { showHelp(module.HelpFile, context); };
}

MainViewFrm& LoadMainView(MainModule& module, Lives& lives) {
    auto& view = module.app.Load<MainViewFrm>(module, lives);
    InstallViewerCommands(view);
    InstallEditingCommands(view);
    InstallFilingCommands(view);
    InstallListCommands(view);
    InstallStageCommands(view);
    InstallShowLibrary(view);
    InstallEditorCommands(view);
    return view;
}

}  // namespace tavrix
