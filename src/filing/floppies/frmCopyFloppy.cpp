#include "filing/floppies/frmCopyFloppy.h"

#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogWork.h"
#include "dialogs/NewFolder.h"
#include "filing/Questions.h"
#include "filing/floppies/FloppyCopy.h"
#include "filing/floppies/FloppyReading.h"

namespace tavrix {

frmCopyFloppy::frmCopyFloppy(forms::Application& application, MainModule& module)
    : Form(application, {.name = "frmCopyFloppy"}), module_(module) {
    Caption = "Copy Image(s) From Floppy Drive";
    HelpContext = HelpContext::FloppyDisks;
    Frame1.Caption = "Select File(s):";
    Files.lblFiles.Caption = "Fi&les:";
    CmdNewDisk.Caption = "&Read Another Disk";
    CmdNewDisk.ToolTip = "Read the contents of another floppy disk.";
    CmdNewDisk.OnClick = [this] {
        Lists.Forget();
        CmdNewDisk_Click(*this, module_, disk_, Files);
    };
    Frame2.Caption = "Select Destination Folder:";
    lblDrives.Caption = "&Drive:";
    lblDrives.SetBuddy(Drive2);
    Drive2.ToolTip = "Click here to select the \"destination\" drive.";
    lblFolders.Caption = "Fold&er:";
    lblFolders.SetBuddy(Dir2);
    CmdNewFolder.Caption = "Ne&w Folder";
    CmdNewFolder.ToolTip = "Create a new folder in the currently selected \"destination\" directory.";
    CmdNewFolder.OnClick = [this] {
        CmdNewFolder_Click(module_, Lists,
                           {.title = ProductName, .name = "New Folder", .offersAnswer = true});
    };
    CmdCopy.Caption = "C&opy";
    CmdCopy.ToolTip = "Copy the selected files to the selected destination.";
    CmdCopy.Default = true;
    CmdCopy.OnClick = [this] { CmdCopy_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Click here to cancel file copy.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    using namespace forms;
    constexpr float listWidth = 3300;
    SetLayout(Column(
        {Growing(
             Row({Growing(Group(
                      Frame1, {Growing(Row({Files.List(),
                                            Column({Files.Selection.CmdAll, Files.Selection.CmdNone,
                                                    Files.Selection.CmdInverse, CmdNewDisk, Stretch()})}))})),
                  Growing(Group(Frame2, {lblDrives, Drive2, lblFolders, Growing(AtLeast(listWidth, 0, Dir2)),
                                         Row({CmdNewFolder, CmdFF, Stretch()})}))})),
         Row({Stretch(), CmdCopy, CmdCancel})}));
}

void frmCopyFloppy::Form_Load() {
    SkipFailure([this] { Files.ReadFrom(disk_.Root()); });
    const std::string& last = module_.config.LastCopyToPath;
    const std::string folder = last.empty() ? FolderOf(module_.CurrentImage) : last;
    if (folder.empty() || EqualIgnoringCase(WithBackslash(folder), GetTempFolder(module_))) return;
    SkipFailure([&] { Lists.GoTo(folder); });
}

void frmCopyFloppy::Form_Activate() {
    CloseWithoutDisk(*this, module_, disk_, Files);
}

void frmCopyFloppy::Tell(const std::string& text) const {
    App().MessageBox({.text = text});
}

bool frmCopyFloppy::UserAgrees(const std::vector<std::string>& names, const std::string& destination) const {
    const std::string blank(NewLine2);
    const std::string what = names.size() == 1 ? "Copy the file:" + blank + names.front() + blank + "...to"
                                               : "Copy " + CountText(module_, names.size()) + " files to";
    return UserSaysYes(module_, what + " the following directory?" + blank + UpperCase(destination));
}

void frmCopyFloppy::CmdCopy_Click() {
    if (module_.Busy() || Lists.Awaits([this] { CmdCopy_Click(); })) return;
    if (Files.File1.ListCount() == 0) {
        Tell("There are no valid image files in the root directory of the floppy, nothing to copy...");
        return;
    }
    const std::vector<std::string> names = Files.Names();
    if (names.empty()) {
        Tell("No source files are selected, nothing to copy...");
        return;
    }
    const std::string destination = Lists.Folder();
    if (EqualIgnoringCase(destination, disk_.Root())) {
        Tell(
            "The source and destination paths are the same, no need to copy images to selected "
            "destination...");
        return;
    }
    if (!UserAgrees(names, destination)) return;
    const std::optional<bool> anyFile = disk_.HasFiles(*this, [this] { return disk_.AsksAgain(); });
    if (!anyFile) return;
    if (!*anyFile) {
        Tell("There are no files on the floppy disk to copy." + std::string(NewLine2) +
             "Insert correct disk and then try again...");
        return;
    }
    const DialogWork work(*this, module_);
    if (!work) return;
    module_.config.LastCopyToPath = UpperCase(destination);
    CopyWithFloppy(module_, disk_, ItemsBetween(disk_.Root(), destination, names),
                   {.replace = "Replace this file with the one on the floppy?",
                    .canceled = "Filecopy was canceled, all files were not copied..."});
    App().Unload(*this);
}

}  // namespace tavrix
