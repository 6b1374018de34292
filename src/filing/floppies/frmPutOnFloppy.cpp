#include "filing/floppies/frmPutOnFloppy.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/Folders.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogWork.h"
#include "filing/CurrentImageFolder.h"
#include "filing/Questions.h"
#include "filing/floppies/FloppyCopy.h"

namespace tavrix {
namespace {

/// What the files on a disk of 1.4 megabytes can have together, in bytes.
constexpr std::int64_t DiskBytes = 1'457'664;

const std::string Paragraph(NewLine2);

}  // namespace

frmPutOnFloppy::frmPutOnFloppy(forms::Application& application, MainModule& module)
    : Form(application, {.name = "frmPutOnFloppy"}), module_(module) {
    Caption = "Copy Images To Floppy";
    HelpContext = HelpContext::FloppyDisks;
    Frame1.Caption = "Select Source File(s):";
    lblDrives.Caption = "&Drive:";
    lblDrives.SetBuddy(Drive1);
    Drive1.ToolTip = "Click here to select the \"source\" drive.";
    lblFolders.Caption = "Fo&lder:";
    lblFolders.SetBuddy(Dir1);
    Files.lblFiles.Caption = "&Select File(s):";
    CmdCopy.Caption = "C&opy";
    CmdCopy.ToolTip = "Copy the selected files to the selected destination.";
    CmdCopy.Default = true;
    CmdCopy.OnClick = [this] { CmdCopy_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Click here to cancel file copy.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::FloppyDisks); };
    Lists.OnContent = [this] { Files.Selection.SetEnabled(!Lists.Pending()); };
    Lists.OnContent();
    Lists.OnFolderChange = [this] {
        module_.DoEvents();
        Lists.WhenRead([this] {
            if (!Unloaded() && Files.File1.ListCount() > 0) Files.File1.ListIndex = 0;
        });
    };
    using namespace forms;
    constexpr float listWidth = 3000;
    SetLayout(Column(
        {Growing(Group(Frame1, {Growing(Row({Growing(Column({lblDrives, Drive1, lblFolders,
                                                             Growing(AtLeast(listWidth, 0, Dir1))})),
                                             Files.List(),
                                             Column({Files.Selection.CmdAll, Files.Selection.CmdNone,
                                                     Files.Selection.CmdInverse, CmdFF, Stretch()})}))})),
         Row({Stretch(), CmdCopy, CmdCancel, CmdHelp})}));
}

void frmPutOnFloppy::Form_Load() {
    GoToFolderOfImage(module_, Lists);
    Lists.WhenRead([this] { SelectImageOnShow(module_, Files.File1); });
}

void frmPutOnFloppy::Tell(const std::string& text) const {
    App().MessageBox({.text = text});
}

std::optional<std::int64_t> frmPutOnFloppy::TotalOf(const std::string& source,
                                                    const std::vector<std::string>& names) const {
    std::int64_t total = 0;
    for (const std::string& name : names) {
        try {
            total += module_.platform.files.Info(source + name).length;
        } catch (const RuntimeError& error) {
            TellFailure(module_, "Aborting, unable to copy the file:", source + name, error);
            return std::nullopt;
        }
    }
    return total;
}

bool frmPutOnFloppy::Fits(std::int64_t total, bool one) const {
    if (total > DiskBytes) {
        Tell(one ? "The selected file is too large too fit on a 1.4 megabyte floppy disk." + Paragraph +
                       "Unable to copy file..."
                 : "The selected files are too large too fit on a 1.4 megabyte floppy disk." + Paragraph +
                       "Reduce the number of files to copy and then try again...");
        return false;
    }
    const std::int32_t free = GetDiskFreeBytes(module_, disk_.Root());
    if (free == 0) {
        Tell("The current floppy disk may be full, un-formatted or not present in the drive." + Paragraph +
             "Insert another disk and then try again...");
        return false;
    }
    constexpr std::int32_t Unknown = -1;
    if (total <= free || free == Unknown) return true;
    Tell(one ? "There is not enough room on the destination disk to fit the selected file." + Paragraph +
                   "Free some space and then try again..."
             : "There is not enough room on the destination disk to fit the selected files." + Paragraph +
                   "Reduce the number of files to copy and then try again...");
    return false;
}

bool frmPutOnFloppy::UserAgrees(const std::vector<std::string>& names) const {
    const std::string what = names.size() == 1
                                 ? "Copy the file:" + Paragraph + names.front() + Paragraph + "...to"
                                 : "Copy " + CountText(module_, names.size()) + " files to";
    return UserSaysYes(module_, what + " floppy disk " + disk_.Root() + " ?");
}

void frmPutOnFloppy::CmdCopy_Click() {
    if (module_.Busy() || Lists.Awaits([this] { CmdCopy_Click(); })) return;
    if (Files.File1.ListCount() == 0) {
        Tell("There are no valid image files in the selected directory, nothing to copy...");
        return;
    }
    const std::string source = Lists.Folder();
    const std::vector<std::string> names = Files.Names();
    const std::optional<std::int64_t> total = TotalOf(source, names);
    if (!total) {
        App().Unload(*this);
        return;
    }
    if (names.empty()) {
        Tell("No source files are selected, nothing to copy...");
        return;
    }
    if (EqualIgnoringCase(source, disk_.Root())) {
        Tell(
            "The source and destination paths are the same, no need to copy images to selected "
            "destination...");
        return;
    }
    if (!Fits(*total, names.size() == 1) || !UserAgrees(names)) return;
    Transfer(source, names);
}

void frmPutOnFloppy::Transfer(const std::string& source, const std::vector<std::string>& names) {
    const DialogWork work(*this, module_);
    if (!work) return;
    if (disk_.HasFiles(*this, [this] { return disk_.AsksAgain(); })) {
        CopyWithFloppy(module_, disk_, ItemsBetween(source, disk_.Root(), names),
                       {.replace = "Replace this file with the one currently selected?",
                        .canceled = "File copy was canceled, all files were not copied..."});
    }
    App().Unload(*this);
}

}  // namespace tavrix
