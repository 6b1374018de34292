#include "shows/library/DeleteSlideFrm.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogPictures.h"
#include "shows/library/LibraryDialog.h"
#include "shows/library/ShowChooser.h"
#include "shows/library/ShowDeletion.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

}  // namespace

DeleteSlideFrm::DeleteSlideFrm(forms::Application& application, MainModule& module)
    : Form(application, {.name = "DeleteSlideFrm"}), module_(module) {
    Caption = "Delete Slide Show";
    HelpContext = HelpContext::DeleteSlideShow;
    CmdDelete.Caption = "&Delete";
    CmdDelete.ToolTip = "Delete the selected slide show.";
    CmdDelete.Default = true;
    CmdDelete.OnClick = [this] { CmdDelete_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window, don't delete a slide show.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::DeleteSlideShow); };
    // The button has the letter.
    Chooser.lblDrives.Caption = "Dri&ve:";
    Image1.AccessibleName = "Warning";
    Image1.ToolTip = "Deleted files will NOT be stored in recycle bin!";
    Image1.Picture = DialogPicture(DialogSign::Bin, module_.Screen().TwipsPerPixelX());
    SetLayout(Chooser.Arrangement(forms::Column({CmdDelete, CmdCancel, CmdHelp, Image1})));
}

void DeleteSlideFrm::Form_Load() {
    Image1.Visible = !module_.config.UseRecycleBin;  // the picture says what is only true then
    StartAtLastShow(module_, Chooser);
}

bool DeleteSlideFrm::UserAgrees(const std::string& path) {
    std::string question = "Delete the selected slide show file?" + Paragraph + path;
    if (!module_.config.UseRecycleBin)
        question += Paragraph + "(Deleted file(s) will NOT be stored in the recycle bin!)";
    return App().MessageBox(
               {.text = question, .icon = forms::BoxIcon::Question, .buttons = forms::BoxButtons::YesNo}) ==
           forms::Answer::Yes;
}

void DeleteSlideFrm::CmdDelete_Click() {
    if (module_.Busy() || Chooser.Lists.Awaits([this] { CmdDelete_Click(); })) return;
    const auto path = Chooser.Selected("There are no files in the selected directory to delete...",
                                       "Select a file to delete and then try again...");
    if (!path || !UserAgrees(*path)) return;
    const forms::BusyGuard busy(module_.Screen());
    deleting_ = true;
    bool whole = ShowDeletion(module_, *path).Run();
    Chooser.File1.Refresh();
    whole = OfferFolder() && whole;
    deleting_ = false;
    const std::string done = "The selected slide show has been deleted...";
    if (whole) {
        App().MessageBox({.text = done});
    } else {
        App().MessageBox({.text = done + Paragraph + "(Some files were not removed due to error(s).)",
                          .icon = forms::BoxIcon::Exclamation});
    }
}

bool DeleteSlideFrm::OfferFolder() {
    SkipFailure([this] { Chooser.Dir1.Refresh(); });
    if (!Chooser.Lists.Wait()) return true;  // whether it is empty was not to be known
    if (Chooser.File1.ListCount() > 0 || Chooser.Dir1.ListCount() > 0) return true;
    const std::string folder = Chooser.Dir1.Path;
    const forms::Answer remove =
        App().MessageBox({.text = "This slide show folder is now empty:" + Paragraph + folder + Paragraph +
                                  "Remove this directory?",
                          .icon = forms::BoxIcon::Question,
                          .buttons = forms::BoxButtons::YesNo});
    if (remove != forms::Answer::Yes) return true;
    try {
        module_.platform.files.RemoveFolder(folder);
    } catch (const RuntimeError& error) {
        TellFailure(module_, "Unable to delete the slide show directory.", error);
        return false;
    }
    LeaveFolder(folder);
    return true;
}

void DeleteSlideFrm::LeaveFolder(const std::string& folder) {
    SkipFailure([this] { Chooser.Dir1.Refresh(); });
    static_cast<void>(Chooser.Lists.Wait());
    Files& files = module_.platform.files;
    SkipFailure([&] {
        if (EqualIgnoringCase(files.CurrentFolder(), folder)) files.ChangeFolder(Chooser.Dir1.Path);
    });
}

void mnuDeleteSlideShow_Click(MainViewFrm& view) {
    ShowLibraryDialog<DeleteSlideFrm>(view);
}

}  // namespace tavrix
