#include "filing/deleting/RenameImgFrm.h"

#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "dialogs/RenameFile.h"
#include "filing/CurrentImageFolder.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr const char* Title = "Tavrix - [Rename Image]";

/// A file has another name, and is the image on show from then on, whether it was before or not.
void TakeRenamed(MainViewFrm& view, const std::string& from, const std::string& to) {
    const forms::BusyGuard busy(view.Module().Screen());
    view.imageOnShow.Renamed(from, to);
}

}  // namespace

RenameImgFrm::RenameImgFrm(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "RenameImgFrm"}), view_(view), module_(view.Module()) {
    Caption = "Rename Image(s)";
    HelpContext = HelpContext::RenameImages;
    Chooser.File1.OnDblClick = [this] { CmdRename_Click(); };
    CmdRename.Caption = "&Rename";
    CmdRename.ToolTip = "Rename selected file.";
    CmdRename.Default = true;
    CmdRename.OnClick = [this] { CmdRename_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::RenameImages); };
    SetLayout(Chooser.Arrangement(forms::Column({CmdRename, CmdCancel, CmdHelp})));
}

void RenameImgFrm::Form_Load() {
    GoToFolderOfImage(module_, Chooser.Lists);
    if (!ImageHasItsFolder(module_)) return;
    Chooser.Lists.WhenRead([this] {
        const int row = RowOfFile(Chooser.File1, FileNameOf(module_.CurrentImage));
        if (row >= 0) Chooser.File1.ListIndex = row;
    });
}

void RenameImgFrm::CmdRename_Click() {
    if (module_.Busy() || Chooser.Lists.Awaits([this] { CmdRename_Click(); })) return;
    const auto tell = [this](const std::string& text) { App().MessageBox({.text = text, .title = Title}); };
    if (Chooser.File1.ListCount() == 0) {
        tell("There are no files in the selected directory to rename...");
        return;
    }
    if (Chooser.File1.ListIndex < 0) {
        tell("A file has not been selected, nothing to rename...");
        return;
    }
    const std::string path = Chooser.Lists.Folder() + Chooser.File1.FileName();
    if (EqualIgnoringCase(path, module_.CurrentImage)) {
        tell("Unable to rename selected file, image is currently open...");
        return;
    }
    const auto renamed =
        RenameFile(module_, path, {.title = Title, .failure = "Unable to rename selected file to: "});
    if (!renamed) return;
    TakeRenamed(view_, path, *renamed);
    const forms::Answer another = App().MessageBox({.text = "Would you like to rename another file?",
                                                    .title = Title,
                                                    .icon = forms::BoxIcon::Question,
                                                    .buttons = forms::BoxButtons::YesNo});
    if (another == forms::Answer::Yes) {
        Chooser.File1.Refresh();
    } else {
        App().Unload(*this);
    }
}

void mnuRenameCurrentImg_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    const std::string path = module.CurrentImage;
    const auto renamed = RenameFile(module, path,
                                    {.title = "Tavrix - [Rename Current Image]",
                                     .failure = "Unable to rename current file to: ",
                                     .endingInAnyCase = true});
    if (renamed) TakeRenamed(view, path, *renamed);
}

}  // namespace tavrix
