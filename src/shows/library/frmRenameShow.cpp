#include "shows/library/frmRenameShow.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/RecentLists.h"
#include "shows/library/LibraryDialog.h"
#include "shows/library/ShowChooser.h"
#include "shows/saver/CurrentSaver.h"

namespace tavrix {
namespace {

constexpr std::size_t EndingLength = 4;  ///< ".tvs"
const std::string Paragraph(NewLine2);

}  // namespace

frmRenameShow::frmRenameShow(forms::Application& application, MainModule& module)
    : Form(application, {.name = "frmRenameShow"}), module_(module) {
    Caption = "Rename Slide Show";
    HelpContext = HelpContext::RenameSlideShow;
    // A row is chosen by keys too.
    Chooser.File1.OnClick = [this] { File1_MouseUp(); };
    Chooser.File1.OnMouseUp = [this](const forms::MouseArguments&) { File1_MouseUp(); };
    Chooser.File1.OnDblClick = [this] { CmdRename_Click(); };
    Chooser.File1.OnPathChange = [this] { File1_PathChange(); };
    lblFilename.Caption = "Enter New Filename for Slide Show:";
    lblFilename.SetBuddy(txtFilename);
    txtFilename.ToolTip = "Enter a filename.";
    txtFilename.OnChange = [this] { txtFilename_Change(); };
    CmdRename.Caption = "&Rename";
    CmdRename.ToolTip = "Rename the selected slide show.";
    CmdRename.Default = true;
    CmdRename.OnClick = [this] { CmdRename_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window, don't rename a slide show.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::RenameSlideShow); };
    using namespace forms;
    SetLayout(Column(
        {Growing(Chooser.Arrangement(Column({CmdRename, CmdCancel, CmdHelp}))), lblFilename, txtFilename}));
    lblFilename.ComeLast();
    txtFilename.ComeLast();
}

void frmRenameShow::Form_Load() {
    StartAtLastShow(module_, Chooser);
}

void frmRenameShow::File1_MouseUp() {
    if (typed_ || Chooser.File1.ListCount() == 0 || Chooser.File1.ListIndex < 0) return;
    const std::string name = Chooser.File1.FileName();
    txtFilename.Text = name;
    txtFilename.SelStart = 0;
    txtFilename.SelLength =
        static_cast<int>(CharacterCount(name) - std::min(CharacterCount(name), EndingLength));
}

void frmRenameShow::File1_PathChange() {
    typed_ = false;
    Chooser.Lists.WhenRead([this] {
        if (Chooser.File1.ListCount() > 0) Chooser.File1.ListIndex = 0;
        File1_MouseUp();
    });
}

/// What is typed for a show that has yet to come stays when it comes.
void frmRenameShow::txtFilename_Change() {
    typed_ = true;
    Chooser.Lists.WhenRead([this] { typed_ = false; });
}

void frmRenameShow::Tell(const std::string& text, forms::BoxIcon icon) {
    App().MessageBox({.text = text, .title = "Tavrix - [Rename Slide Show]", .icon = icon});
}

std::string frmRenameShow::NewName(const std::string& oldName) {
    std::string name = txtFilename.Text;
    if (name.empty() || EqualIgnoringCase(name, ".tvs")) {  // which would be hidden
        Tell("A new filename was not specified, unable to rename slide show...");
        return {};
    }
    if (!EndsInIgnoringCase(name, ".TVS")) name += ".tvs";
    // A slash separates folders in paths too.
    if (name.find_first_of("\\:/") != std::string::npos) {
        Tell("You may not include a path in the filename, unable to rename slide show...");
        txtFilename.SelectAll();
        return {};
    }
    if (EqualIgnoringCase(name, oldName)) {
        Tell("The new filename is the same as the current one, unable to rename slide show...");
        return {};
    }
    if (module_.platform.files.FileExists(Chooser.Lists.Folder() + name)) {
        Tell("The filename that was specified already exists, unable to rename slide show...");
        return {};
    }
    return name;
}

bool frmRenameShow::UserAgrees(const std::string& oldName, const std::string& newName) {
    return App().MessageBox({.text = "You are about to rename:" + Paragraph + oldName + Paragraph +
                                     "   -- to --" + Paragraph + newName + Paragraph + "Are you sure?",
                             .title = "Tavrix - [Rename Slide Show]",
                             .icon = forms::BoxIcon::Question,
                             .buttons = forms::BoxButtons::YesNo}) == forms::Answer::Yes;
}

void frmRenameShow::CmdRename_Click() {
    if (module_.Busy() || Chooser.Lists.Awaits([this] { CmdRename_Click(); })) return;
    const std::string unable = Paragraph + "Unable to rename slide show...";
    if (Chooser.File1.ListCount() == 0) {
        Tell("There are no slide show files in the selected directory." + unable);
        return;
    }
    const std::string oldName = Chooser.File1.FileName();
    if (oldName.empty()) {
        Tell("Select the slide show file that you would like to rename and then try again." + unable);
        return;
    }
    const std::string newName = NewName(oldName);
    if (!newName.empty() && UserAgrees(oldName, newName)) Rename(oldName, newName);
}

void frmRenameShow::Rename(const std::string& oldName, const std::string& newName) {
    const std::string oldPath = Chooser.Lists.Folder() + oldName;
    std::string newPath = Chooser.Lists.Folder() + newName;
    try {
        RequireExactly(module_, oldPath);
        module_.platform.files.Rename(oldPath, newPath);
    } catch (const RuntimeError& error) {
        Tell(FailureText("Unable to rename slide show to: " + newName, error), forms::BoxIcon::Stop);
        return;
    }
    RemoveRecentShow(module_, oldPath);
    AddRecentShow(module_, newPath);
    SkipFailure([&] {
        UserStore& store = module_.platform.store;
        if (EqualIgnoringCase(store.Get(CurrentSaver, ""), oldPath)) store.Set(CurrentSaver, newPath);
    });
    Chooser.File1.Refresh();
}

void mnuRenameShow_Click(MainViewFrm& view) {
    ShowLibraryDialog<frmRenameShow>(view);
}

}  // namespace tavrix
