// The show as a file, its options, and the end of the editor.

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/files/ShowFileWriter.h"
#include "shows/library/DeleteSlideFrm.h"
#include "shows/library/LoadShow.h"
#include "shows/library/SaveSlideFile.h"
#include "shows/library/frmRenameShow.h"
#include "shows/options/SlideOptionsFrm.h"
#include "viewer/ExitFrm.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

}  // namespace

void SlideLoadFrm::CmdLoad_Click() {
    constexpr int no = 2;
    if (Unsaved() && !Ask("The current slide show has changed." + Paragraph + "Load a new slide show anyway?",
                          "Tavrix", no))
        return;
    EditorTarget target(module_, *this);
    LoadShow(module_, target);
}

void SlideLoadFrm::CmdSave_Click() {
    if (ListView.ListCount() == 0) {
        Tell("There are no slides in the View List to save." + Paragraph +
             "Add files to the list and then try again...");
        return;
    }
    if (!Unsaved()) {
        Tell("The current slide show has not changed, nothing to save...");
        return;
    }
    if (!HasFile()) {
        CmdSaveAs_Click();
        return;
    }
    if (!Ask("About to update the slide show file:" + Paragraph + ShowPath() + Paragraph + "Are you sure?"))
        return;
    const forms::BusyGuard busy(module_.Screen());
    module_.show.SaveFromArrays = false;
    module_.show.SlideCount = static_cast<std::int16_t>(ListView.ListCount());
    const std::string path = ShowPath();
    NoteSave(WriteSlideFile(module_, FolderOf(path), FileNameOf(path)));
}

void SlideLoadFrm::CmdSaveAs_Click() {
    if (ListView.ListCount() == 0) {
        Tell("There are no slides in the View List to save." + Paragraph +
             "Add files to the list and then try again...");
        return;
    }
    module_.show.SaveFromArrays = false;
    module_.show.SlideCount = static_cast<std::int16_t>(ListView.ListCount());
    if (const std::optional<SaveEnd> end = SaveShowAs(module_, ShowPath())) NoteSave(*end);
}

void SlideLoadFrm::CmdOptions_Click() {
    module_.show.SlideCount = static_cast<std::int16_t>(ListView.ListCount());
    ShowDialog<SlideOptionsFrm>(module_, folder_);
}

void SlideLoadFrm::mnuRenameShow_Click() {
    ShowDialog<frmRenameShow>(module_);
}

void SlideLoadFrm::mnuDeleteShow_Click() {
    ShowDialog<DeleteSlideFrm>(module_);
}

void SlideLoadFrm::Form_QueryUnload(bool& cancel) {
    cancel = module_.Busy() || !MayClose();
}

bool SlideLoadFrm::MayClose() {
    if (!Unsaved()) return true;
    ExitAnswer answer = ExitAnswer::Cancel;
    App().Load<ExitFrm>(answer).ShowModal();
    bool closes = false;
    switch (answer) {
        case ExitAnswer::Save:
            CmdSave_Click();
            closes = !Unsaved();
            break;
        case ExitAnswer::Discard:
            closes = true;
            break;
        case ExitAnswer::Exit:
            App().Unload(view_);  // ends the process, unless the user keeps an image
            break;
        case ExitAnswer::Cancel:
            break;
    }
    return closes;
}

void SlideLoadFrm::Form_Unload(bool&) {
    module_.show.ShowChanged = false;
    if (!kept_.empty()) SkipFailure([this] { module_.platform.files.Delete(kept_); });
    SkipFailure([this] { module_.platform.files.ChangeDrive(Drive1.Drive); });
    SkipFailure([this] { module_.platform.files.ChangeFolder(Dir1.Path); });
    module_.show.EraseSlides();
    if (module_.config.TopMostWindow) view_.SetTopmost(true);
    view_.Show();
}

void SlideLoadFrm::KeepForEndOfSession() {
    if (!Unsaved() || ListView.ListCount() == 0) return;
    Files& files = module_.platform.files;
    if (kept_.empty()) {
        std::string stem = module_.AppPath + "Unsaved " + FileNameOf(ShowPath());
        constexpr std::string_view ending = ".tvs";
        if (EndsInIgnoringCase(stem, ending)) stem.resize(stem.size() - ending.size());
        std::string path = stem + ".tvs";
        for (int number = 2; files.FileExists(path); ++number)
            path = stem + " (" + std::to_string(number) + ").tvs";
        kept_ = path;
    }
    SkipFailure([&] {
        // It does not lie in the show's folder.
        std::vector<std::string> paths;
        ShowOptions options = module_.config;
        if (!options.SoundFile.empty()) options.SoundFile = folder_.SlidePath(options.SoundFile);
        ShowFileEncoding encoding;
        encoding.Add(options.SoundFile);
        for (int row = 0; row < ListView.ListCount(); ++row) {
            paths.push_back(SlidePath(row));
            encoding.Add(paths.back());
            encoding.Add(module_.show.SlideDescriptions[row]);
        }
        ShowFileWriter file(files.Create(kept_), encoding);
        file.WriteHeader(options);
        for (int row = 0; row < ListView.ListCount(); ++row)
            file.WriteSlide(paths[static_cast<std::size_t>(row)], module_.show.SlideDescriptions[row]);
        file.Close();
    });
}

void KeepUnsavedShow(const MainModule& module) {
    if (auto* editor = module.app.Loaded<SlideLoadFrm>()) editor->KeepForEndOfSession();
}

}  // namespace tavrix
