#include "browsing/frmThumbFolder.h"

#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/NumberText.h"

namespace tavrix {

frmThumbFolder::frmThumbFolder(forms::Application& application, const MainModule& module, ThumbnailList& list)
    : Form(application, {.name = "frmThumbFolder"}), Chooser(*this, module, list), module_(module) {
    Caption = "Thumbnail Browser - [Select Folder to Browse]";
    HelpContext = HelpContext::ThumbFolder;
    Chooser.Label1.Caption = "Select a directory and then press the \"OK\" button to view thumbnail images.";
    Chooser.lblFiles.Visible = false;
    Chooser.File1.Visible = false;  // it counts the images
    Chooser.Lists.OnContent = [this] { File1_PathChange(); };
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Click here to show thumbnails of images in the selected folder.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't show thumbnails.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::ThumbFolder); };
    Chooser.CmdFF.ComeLast();  // it stands below the others
    using namespace forms;
    SetLayout(Column(
        {Chooser.Label1,
         Growing(Row({Chooser.Folders(), Column({CmdOK, CmdCancel, CmdHelp, Chooser.CmdFF, Stretch()})})),
         lblNumFiles}));
}

void frmThumbFolder::Form_Load() {
    Chooser.Start();
    Chooser.File1.Refresh();
    File1_PathChange();
    module_.Screen().MousePointer = forms::MousePointer::Default;
}

void frmThumbFolder::Form_Unload(bool&) {
    Chooser.End();
}

std::string frmThumbFolder::Grouped(int number) const {
    return GroupedNumber(number, module_.platform.system.Numbers());
}

void frmThumbFolder::File1_PathChange() {
    if (Chooser.Pending()) {
        lblNumFiles.Caption = "Please wait...";
        return;
    }
    const int count = Chooser.File1.ListCount();
    if (count == 0) {
        lblNumFiles.Caption = "There are no image files in this folder to browse...";
    } else if (count == 1) {
        lblNumFiles.Caption = "There is one image file in this folder to browse...";
    } else if (count <= ThumbnailList::Most) {
        lblNumFiles.Caption = "There are " + Grouped(count) + " image files in this folder to browse...";
    } else {
        lblNumFiles.Caption = "There are too many files in this folder to browse...";
    }
}

void frmThumbFolder::CmdOK_Click() {
    if (module_.Busy()) return;  // the dialog is closing already
    if (Chooser.Lists.Awaits([this] { CmdOK_Click(); })) return;
    if (!Chooser.AnyFiles()) return;
    const int count = Chooser.File1.ListCount();
    if (count > ThumbnailList::Most) {
        App().MessageBox({.text = "There are " + Grouped(count) +
                                  " files in this folder, you may only browse " +
                                  Grouped(ThumbnailList::Most) + " thumbnails at a time." +
                                  std::string(NewLine2) + "Select another folder and then try again..."});
        return;
    }
    Chooser.MakeList({0, count});
    App().Unload(*this);
}

}  // namespace tavrix
