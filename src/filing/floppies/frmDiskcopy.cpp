#include "filing/floppies/frmDiskcopy.h"

#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogWork.h"
#include "filing/Questions.h"
#include "filing/floppies/FloppyReading.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

}  // namespace

frmDiskcopy::frmDiskcopy(forms::Application& application, MainModule& module)
    : Form(application, {.name = "frmDiskcopy"}), module_(module) {
    Caption = "Copy Images From Floppy To Floppy";
    HelpContext = HelpContext::FloppyToFloppy;
    Files.lblFiles.Caption = "&Select File(s):";
    Files.Selection.CmdAll.ToolTip = "Select all of the files.";
    CmdNewDisk.Caption = "&Read Another Disk";
    CmdNewDisk.ToolTip = "Read the contents of another floppy disk.";
    CmdNewDisk.OnClick = [this] { CmdNewDisk_Click(*this, module_, disk_, Files); };
    CmdCopy.Caption = "C&opy";
    CmdCopy.ToolTip = "Copy the selected files to another floppy disk.";
    CmdCopy.Default = true;
    CmdCopy.OnClick = [this] { CmdCopy_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Click here to cancel file copy.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::FloppyToFloppy); };
    using namespace forms;
    SetLayout(
        Column({Growing(Row({Files.List(), Column({Files.Selection.CmdAll, Files.Selection.CmdNone,
                                                   Files.Selection.CmdInverse, CmdNewDisk, Stretch()})})),
                Row({Stretch(), CmdCopy, CmdCancel, CmdHelp})}));
}

void frmDiskcopy::Form_Load() {
    SkipFailure([this] { Files.ReadFrom(disk_.Root()); });
}

void frmDiskcopy::Form_Activate() {
    CloseWithoutDisk(*this, module_, disk_, Files);
}

void frmDiskcopy::Tell(const std::string& text) const {
    App().MessageBox({.text = text});
}

bool frmDiskcopy::UserAgrees(const std::vector<std::string>& names) const {
    const std::string what = names.size() == 1
                                 ? "Copy the file:" + Paragraph + names.front() + Paragraph + "...to"
                                 : "Copy " + CountText(module_, names.size()) + " files to";
    return UserSaysYes(module_, what + " another floppy disk?");
}

void frmDiskcopy::CmdCopy_Click() {
    if (module_.Busy()) return;
    const auto again = [this] { return disk_.AsksAgain(); };
    Tell("Make sure the SOURCE disk is inserted and then press the OK button to continue.");
    if (!disk_.WaitsForDisk(again) || !disk_.Wake(*this)) return;
    Files.File1.RefreshKeepingRows();
    if (Files.File1.ListCount() == 0) {
        Tell("There are no valid image files in the root directory of the source floppy, nothing to copy...");
        return;
    }
    const std::vector<std::string> names = Files.Names();
    if (names.empty()) {
        Tell("No source files are selected, nothing to copy...");
        return;
    }
    if (!UserAgrees(names)) return;
    const std::optional<bool> anyFile = disk_.HasFiles(*this, again);
    if (!anyFile) return;
    if (!*anyFile) {
        Tell("There are no files on the source disk to copy." + Paragraph +
             "Insert correct disk and then try again...");
        return;
    }
    Transfer(names);
}

void frmDiskcopy::Transfer(const std::vector<std::string>& names) {
    const DialogWork work(*this, module_);
    if (!work) return;
    {
        Staging staging(module_, names);
        CopyWindow window(module_);
        const TransferEnd end = CopyBetween(names, window, staging);
        window.Tell("Tavrix is removing temporary files...");
        staging.Clear();
        window.Close();
        module_.DoEvents();
        if (end == TransferEnd::Canceled) {
            App().MessageBox({.text = "File copy was canceled, all files were not copied...",
                              .icon = forms::BoxIcon::Exclamation});
        }
    }
    App().Unload(*this);
}

TransferEnd frmDiskcopy::CopyBetween(const std::vector<std::string>& names, CopyWindow& window,
                                     Staging& staging) {
    window.Tell("Tavrix is preparing to copy files...");
    FileTransfer reading(module_, window, TransferAct::Copy,
                         {.doing = "Tavrix is copying the file:",
                          .failure = "Aborting, unable to copy the file:",
                          .failureTellsPath = false,
                          .replace = {}});
    reading.OnNoDisk = [this] { return disk_.AsksAgain(); };
    reading.OnDone = [&](const TransferItem& item) { staging.Staged(item.to); };
    std::vector<TransferItem> items;
    for (const std::string& name : names)
        items.push_back({disk_.PathOf(name), staging.PathOf(name), name});
    try {
        staging.SetAside();
    } catch (const RuntimeError& error) {
        window.Close();
        TellFailure(module_, "Aborting, unable to copy the file:", names.front(), error);
        return TransferEnd::Failed;
    }
    if (const TransferEnd end = reading.Run(items); end != TransferEnd::Done) return end;

    if (!AsksForDestination(window)) return TransferEnd::Stopped;
    window.Tell("Tavrix is preparing to transfer files...");
    FileTransfer writing(module_, window, TransferAct::Copy,
                         {.doing = "Tavrix is writing the file:",
                          .failure = "Aborting, unable to write the destination file:",
                          .failureTellsPath = false,
                          .exists = "The following file already exists on the destination floppy:",
                          .replace = "Replace this file with the one from the source disk?"});
    writing.OnNoDisk = [this] { return disk_.AsksAgain(); };
    for (TransferItem& item : items)
        std::swap(item.from, item.to);
    return writing.Run(items);
}

bool frmDiskcopy::AsksForDestination(CopyWindow& window) const {
    window.Hide();
    const forms::Answer answer =
        App().MessageBox({.text = "Insert the DESTINATION disk and then press the OK button to continue.",
                          .buttons = forms::BoxButtons::OkCancel});
    if (answer != forms::Answer::Ok) return false;
    window.Show();
    return true;
}

}  // namespace tavrix
