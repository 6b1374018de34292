#include "filing/floppies/frmDeleteFloppy.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/HelpContexts.h"
#include "dialogs/EntryField.h"
#include "filing/CurrentImageFolder.h"
#include "filing/Questions.h"
#include "filing/floppies/FloppyDeletion.h"

namespace tavrix {
namespace {

constexpr std::string_view NotInExtensions = " *.?\\";
constexpr const char* AnyExtension = "?";

const std::string Paragraph(NewLine2);

}  // namespace

frmDeleteFloppy::frmDeleteFloppy(forms::Application& application, MainModule& module)
    : Form(application, {.name = "frmDeleteFloppy"}), module_(module) {
    Caption = "Delete Images On Floppy";
    HelpContext = HelpContext::FloppyDisks;
    Files.lblFiles.Caption = "&Select File(s):";
    CmdRefresh.Caption = "Read Another Dis&k";
    CmdRefresh.ToolTip = "Insert another floppy, then press this button.";
    CmdRefresh.OnClick = [this] { ReadDisk(); };
    CheckDelThumbnail.Caption = "Delete thumbnail files with the following extension:";
    CheckDelThumbnail.OnClick = [this] { CheckDelThumbnail_Click(); };
    txtExt.ToolTip = "Enter 3 character filename extension.";
    txtExt.AccessibleName = "Extension of thumbnail files";
    txtExt.MaxLength = 3;
    txtExt.OnKeyPress = [this](std::string& character) { txtExt_KeyPress(character); };
    CmdAllThumbnails.Caption = "All";
    CmdAllThumbnails.ToolTip = "Ignore file extensions when deleting files.";
    CmdAllThumbnails.OnClick = [this] { CmdAllThumbnails_Click(); };
    CmdCopy.Caption = "&Delete";
    CmdCopy.ToolTip = "Delete the selected file(s).";
    CmdCopy.Default = true;
    CmdCopy.OnClick = [this] { CmdCopy_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    using namespace forms;
    constexpr float extensionWidth = 700;
    SetLayout(
        Column({lblMsg,
                Growing(Row({Files.List(), Column({Files.Selection.CmdAll, Files.Selection.CmdNone,
                                                   Files.Selection.CmdInverse, CmdRefresh, Stretch()})})),
                Row({CheckDelThumbnail, AtLeast(extensionWidth, 0, txtExt), CmdAllThumbnails, Stretch()}),
                Row({Stretch(), CmdCopy, CmdCancel})}));
}

void frmDeleteFloppy::Form_Load() {
    CheckDelThumbnail.Value = module_.config.ThumbnailDelete;
    txtExt.Text = module_.config.ThumbnailExtension;
    lblMsg.Caption = "Contents of Floppy Drive " + disk_.Root();
    SkipFailure([this] { Files.ReadFrom(disk_.Root()); });
}

void frmDeleteFloppy::ReadDisk() {
    if (module_.Busy() || Unloaded() || !disk_.Wake(*this)) return;
    try {
        Files.ReadFrom(disk_.Root());
    } catch (const RuntimeError&) {
        Tell("Unable to read files from floppy disk." + Paragraph +
             "Make sure disk is inserted and try again...");
    }
}

void frmDeleteFloppy::CheckDelThumbnail_Click() {
    if (CheckDelThumbnail.Value && Visible()) SelectToReplace(txtExt);
}

void frmDeleteFloppy::CmdAllThumbnails_Click() {
    txtExt.Text = AnyExtension;
    SelectToReplace(txtExt);
}

void frmDeleteFloppy::txtExt_KeyPress(std::string& character) {
    if (character.size() == 1 && NotInExtensions.find(character.front()) != std::string_view::npos) {
        character.clear();
        txtExt.Text = AnyExtension;
        txtExt.SelectAll();
    } else if (txtExt.Text.Get().find_first_of(NotInExtensions) != std::string::npos) {
        txtExt.Text = "";
    }
}

void frmDeleteFloppy::Tell(const std::string& text) const {
    App().MessageBox({.text = text});
}

bool frmDeleteFloppy::UserAgrees(const std::vector<std::string>& names) const {
    if (names.size() > 1) {
        return UserSaysYes(module_, "You are about to delete " + std::to_string(names.size()) +
                                        " files from Floppy Drive " + disk_.Root() + Paragraph +
                                        "Are you sure?");
    }
    const std::string path = disk_.PathOf(names.front());
    if (IsImageOnShow(module_, path)) {
        Tell("Unable to delete this file, image is currently open...");
        return false;
    }
    return UserSaysYes(module_,
                       "You are about to delete the file:" + Paragraph + path + Paragraph + "Are you sure?");
}

void frmDeleteFloppy::CmdCopy_Click() {
    if (module_.Busy()) return;
    const std::string extension = Trim(txtExt.Text.Get());
    module_.config.ThumbnailExtension = extension.empty() ? AnyExtension : extension;
    module_.config.ThumbnailDelete = CheckDelThumbnail.Value;
    if (Files.File1.ListCount() == 0) {
        Tell("There are no files on this floppy to delete.");
        return;
    }
    const std::vector<std::string> names = Files.Names();
    if (names.empty()) {
        Tell("Nothing was selected to delete." + Paragraph +
             "Select the file(s) that you want to delete and then try again...");
        return;
    }
    if (UserAgrees(names)) Delete(names);
}

void frmDeleteFloppy::Delete(const std::vector<std::string>& names) {
    const forms::BusyGuard busy(module_.Screen());
    FloppyDeletion deletion(module_, disk_);
    try {
        for (const std::string& name : names) {
            const std::string path = disk_.PathOf(name);
            if (deletion.HasTaken(name)) continue;
            if (IsImageOnShow(module_, path)) {
                Tell("Unable to delete:" + Paragraph + path + Paragraph + "Image is currently open...");
                continue;
            }
            deletion.Delete(name);
        }
    } catch (const RuntimeError& error) {
        TellFailure(module_, "Unable to delete all of the selected files.", error);
    }
    Files.File1.Refresh();
    module_.DoEvents();
}

}  // namespace tavrix
