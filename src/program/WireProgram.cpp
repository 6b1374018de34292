#include "program/WireProgram.h"

#include "browsing/Commands.h"
#include "editing/Commands.h"
#include "editing/importing/Importing.h"
#include "filing/Commands.h"
#include "filing/floppies/Staging.h"
#include "finding/Commands.h"
#include "lists/Commands.h"
#include "settings/Commands.h"
#include "shows/Commands.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/library/LibraryCommands.h"
#include "shows/library/SaveSlideFile.h"
#include "shows/package/PackageCommands.h"
#include "shows/saver/SaverCommands.h"
#include "shows/stage/StageCommands.h"
#include "viewer/Commands.h"
#include "viewer/MainViewFrm.h"
#include "viewer/OtherSubsystems.h"

namespace tavrix {
namespace {

OtherSubsystems Others(MainModule& module, MainViewFrm& view) {
    return {.PreviewOnStage =
                [&module](const std::string& path) {
                    module.StageImage = path;
                    ViewStageImage(module);
                },
            .SaveShowAs = [&module](const std::string& name) { SaveShowAs(module, name); },
            .Import = [&view](const std::string& path,
                              const OpenFailure& failure) { ImportIntoMainView(view, path, failure); }};
}

}  // namespace

void WireProgram(MainModule& module, Lives& lives, ProgramFiles* programFiles, IdleStart* idleStart) {
    InstallShowCommands(module, lives,
                        {.showAbout = [&module] { ShowAbout(module); }, .idleStart = idleStart});
    lives.ShowMainView = [&module, &lives, programFiles] {
        PutBackSetAside(module);
        LoadMainView(module, lives, programFiles).Show();
    };

    const auto showHelp = [&module](const std::string& file, unsigned context) {
        module.platform.help.Show(file, HelpCommand::Context, context);
    };
    module.app.OnHelp = [&module, showHelp](const forms::BoxRequest& request) {
        showHelp(request.helpFile.empty() ? module.HelpFile : request.helpFile, request.helpContext);
    };
    module.app.OnHelpKey = [&module, showHelp](unsigned context) { showHelp(module.HelpFile, context); };
}

MainViewFrm& LoadMainView(MainModule& module, Lives& lives, ProgramFiles* programFiles) {
    auto& view = module.app.Load<MainViewFrm>(module, lives);
    const OtherSubsystems others = Others(module, view);
    InstallViewerCommands(view);
    InstallEditingCommands(view);
    InstallFilingCommands(view);
    InstallListCommands(view, others);
    InstallFindingCommands(view, others);
    InstallStageCommands(view);
    InstallShowLibrary(view);
    InstallEditorCommands(view);
    InstallBrowsingCommands(view, [&module] { ViewStageImage(module); });
    InstallSettingsCommands(view);
    InstallSaverCommands(view);
    InstallPackageCommands(view, programFiles);
    return view;
}

}  // namespace tavrix
