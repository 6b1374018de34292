#include "shows/editor/frmSlideCopyImages.h"

#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/NumberText.h"
#include "dialogs/DialogWork.h"
#include "dialogs/ExploreFolder.h"
#include "dialogs/NewFolder.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

}  // namespace

frmSlideCopyImages::frmSlideCopyImages(forms::Application& application, MainViewFrm& view, Sources sources,
                                       Editor editor)
    : Form(application, {.name = "frmSlideCopyImages"}),
      view_(view),
      module_(view.Module()),
      sources_(std::move(sources)),
      editor_(std::move(editor)) {
    Caption = sources_.move ? "Move Selected Image(s)" : "Copy Selected Image(s)";
    HelpContext = HelpContext::SlideCopyImages;
    lblSource.Caption = "Source folder:";
    lblSourcePath.Literal = true;
    lblSourcePath.Caption = "Error getting path...";
    lblSourcePath.ToolTip = "Click here to show full path to source folder.";
    lblSourcePath.OnClick = [this] { lblSourcePath_Click(); };
    lblSelected.Caption = "Number of source files selected =";
    lblNumSelected.Caption = "Error...";
    lblDrives.Caption = "&Drive:";
    lblDrives.SetBuddy(Drive1);
    lblFolders.Caption = "Fo&lder:";
    lblFolders.SetBuddy(Dir1);
    CmdNewFolder.Caption = "Ne&w Folder";
    CmdNewFolder.ToolTip = "Create a new folder in the selected directory.";
    CmdNewFolder.OnClick = [this] { CmdNewFolder_Click(module_, Lists); };
    CmdExplore.Caption = "&Explore";
    CmdExplore.ToolTip = "View files in the selected directory.";
    CmdExplore.OnClick = [this] {
        Lists.Forget();
        ExploreFolder(module_, Dir1.Path);
    };
    CmdCopy.Caption = sources_.move ? "&Move" : "C&opy";
    CmdCopy.ToolTip = sources_.move ? "Move source file(s) to selected destination folder."
                                    : "Copy source file(s) to selected destination folder.";
    CmdCopy.Default = true;
    CmdCopy.OnClick = [this] { CmdCopy_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::SlideCopyImages); };
    using namespace forms;
    constexpr float listWidth = 3900;
    constexpr float listHeight = 3300;
    SetLayout(Column({Row({lblSource, Growing(lblSourcePath)}), Row({lblSelected, Growing(lblNumSelected)}),
                      Growing(Row({Growing(Column({lblDrives, Drive1, lblFolders,
                                                   Growing(AtLeast(listWidth, listHeight, Dir1))})),
                                   Column({CmdFF2, CmdNewFolder, CmdExplore, Stretch()})})),
                      Row({Stretch(), CmdCopy, CmdCancel, CmdHelp})}));
}

void frmSlideCopyImages::Form_Load() {
    lblSourcePath.Caption = sources_.folder;
    lblNumSelected.Caption =
        GroupedNumber(static_cast<std::int64_t>(sources_.names.size()), module_.platform.system.Numbers());
    const std::string& last = module_.config.LastCopyToPath;
    SkipFailure([&] { Lists.GoTo(last.empty() ? module_.AppPath : last); });
}

std::string frmSlideCopyImages::Word() const {
    return CmdCopy.Caption.Get() == "C&opy" ? "copy" : "move";
}

void frmSlideCopyImages::Tell(const std::string& text) {
    App().MessageBox({.text = text});
}

void frmSlideCopyImages::lblSourcePath_Click() {
    Tell("Complete path to source file(s) folder:" + Paragraph + sources_.folder);
}

bool frmSlideCopyImages::UserAgrees(const std::string& destination) {
    const bool one = sources_.names.size() == 1;
    const std::string what =
        one ? "OK to " + Word() + " the file:" + Paragraph + sources_.names.front() + Paragraph +
                  "...to the following directory?"
            : "OK to " + Word() + " " + lblNumSelected.Caption.Get() + " files to the following directory?";
    return App().MessageBox({.text = what + Paragraph + destination,
                             .icon = forms::BoxIcon::Question,
                             .buttons = forms::BoxButtons::YesNo}) == forms::Answer::Yes;
}

void frmSlideCopyImages::CmdCopy_Click() {
    if (module_.Busy() || Lists.Awaits([this] { CmdCopy_Click(); })) return;
    const std::string destination = Lists.Folder();
    if (EqualIgnoringCase(destination, sources_.folder)) {
        Tell("The source and destination paths are the same, no need to " + Word() +
             " images to selected destination...");
        return;
    }
    if (!UserAgrees(destination)) return;
    const DialogWork work(*this, module_);
    if (!work) return;
    module_.config.LastCopyToPath = destination;
    Transfer(destination);
    App().Unload(*this);
}

void frmSlideCopyImages::Transfer(const std::string& destination) {
    const std::string word = Word();
    std::vector<TransferItem> items;
    for (const std::string& name : sources_.names)
        items.push_back({sources_.folder + name, destination + name, name});

    CopyWindow window(module_);
    window.Tell("Tavrix is preparing to " + word + " file(s)...");
    FileTransfer transfer(module_, window, sources_.move ? TransferAct::CopyThenRemove : TransferAct::Copy,
                          {.doing = "Tavrix is " + word + "ing the file:",
                           .failure = "Aborting, unable to " + word + " the file:",
                           .failureTellsPath = false,
                           .replace = "Replace this file with the one in the source folder?"});
    bool entriesChanged = false;
    transfer.OnSourceStays = [&](const TransferItem& item, const RuntimeError& error) {
        window.Hide();
        const bool goesOn = GoesOnWithout(item, error);
        window.Show();
        return goesOn;
    };
    transfer.OnDone = [&](const TransferItem& item) {
        if (!sources_.move) return;
        if (editor_.Moved(item.from, item.to)) entriesChanged = true;
        view_.imageOnShow.Moved(item.from, item.to);
    };
    const TransferEnd end = transfer.Run(items);
    window.Close();
    editor_.RefreshSources();
    const bool canceled = end == TransferEnd::Canceled || (end == TransferEnd::Stopped && !sourceStayed_);
    if (canceled) {
        App().MessageBox({.text = "The " + word + " file(s) command was canceled...",
                          .icon = forms::BoxIcon::Exclamation});
    }
    if (!entriesChanged) return;
    module_.show.ShowChanged = true;
    Tell(
        "Some of the selected file(s) were in the current slide show, the entries for this slide were "
        "updated "
        "as a result...");
}

bool frmSlideCopyImages::GoesOnWithout(const TransferItem& item, const RuntimeError& error) {
    const forms::Answer answer =
        App().MessageBox({.text = FailureText("Error, unable to remove source file:", item.from, error) +
                                  Paragraph + "Try to move the remaining files anyway?",
                          .icon = forms::BoxIcon::Question,
                          .buttons = forms::BoxButtons::YesNo});
    sourceStayed_ = answer == forms::Answer::No;
    return answer == forms::Answer::Yes;
}

}  // namespace tavrix
