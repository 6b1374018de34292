#include "shows/library/FindSlideFrm.h"

#include <cstdint>

#include "base/RuntimeError.h"
#include "core/Folders.h"
#include "core/HelpContexts.h"
#include "core/RecentLists.h"
#include "shows/files/LoadShowFile.h"
#include "shows/library/LibraryDialog.h"
#include "shows/library/ShowsFolder.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/StageCommands.h"

namespace tavrix {
namespace {

FindWords Words() {
    return {.title = "Tavrix - [Find Slide Show(s)]",
            .patterns = ShowPattern,
            .kind = "slide shows",
            .label = "Enter filename pattern to search for or enter * to find ALL slide show files:",
            .searching = "Searching for slide shows...",
            .findAll = "Find ALL slide show files on ",
            .canceled = "Find Slide Show(s) was canceled...",
            .noFiles =
                "No valid slide show files were found, select a drive and press the \"Find\" button to "
                "search for files...",
            .deletion = "Tavrix - [Find Slide Show(s)]"};
}

void PlayFoundShow(MainViewFrm& view) {
    MainModule& module = view.Module();
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    EndStage(module);
    module.SlideShowActive = true;
    module.StartedAsShow = true;
    module.show.SlideCount = static_cast<std::int16_t>(module.show.Count());
    auto& stage = module.app.Load<FullViewFrm>(module);
    if (!stage.Unloaded()) stage.ShowModal();
}

}  // namespace

FindSlideFrm::FindSlideFrm(forms::Application& application, MainModule& module, std::string& answer)
    : Form(application, {.name = "FindSlideFrm"}),
      module_(module),
      answer_(answer),
      Find(*this, module, Words(), HelpContext::FindSlideShow) {
    Caption = "Find Slide Show(s)";
    HelpContext = HelpContext::FindSlideShow;
    answer_.clear();
    Find.OnOpen = [this] { CmdOpen_Click(); };
    Find.OnDeleted = [this](const std::string& path) { RemoveRecentShow(module_, path); };
    SetLayout(Find.Arrangement());
}

void FindSlideFrm::CmdOpen_Click() {
    if (module_.Busy() || Find.FindRunning) return;
    const auto path = Find.Selected();
    if (!path) return;
    if (!LoadShowFile(module_, *path)) {
        Find.Tell("This slide show file does not contain any images, nothing to show...");
        return;
    }
    SkipFailure([&] { ChangeToFolderOf(module_, *path); });
    answer_ = StartSlideShow;
    App().Unload(*this);
}

void mnuFindSlideShow_Click(MainViewFrm& view) {
    std::string answer;
    ShowLibraryDialog<FindSlideFrm>(view, answer);
    if (answer == FindSlideFrm::StartSlideShow) PlayFoundShow(view);
}

}  // namespace tavrix
