#include "lists/frmBrowseQuick.h"

#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"

namespace tavrix {

frmBrowseQuick::frmBrowseQuick(forms::Application& application, const MainModule& module,
                               frmQuickFolders& folders)
    : Form(application, {.name = "frmBrowseQuick"}),
      module_(module),
      folders_(folders),
      row_(folders.Slot()) {
    Caption = "Select Quick Folder " + row_.number;
    HelpContext = HelpContext::FavoriteFolder;
    lblPathMsg.Caption = "Current Quick Folder:";
    lblPath.Literal = true;
    CmdOK.Caption = "&OK";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::FavoriteFolder); };
    SetLayout(
        forms::Column({forms::Row({lblPathMsg, forms::Growing(forms::AtLeast(3000, 0, lblPath))}),
                       Chooser.Arrangement(), forms::Row({forms::Stretch(), CmdOK, CmdCancel, CmdHelp})}));
}

void frmBrowseQuick::Form_Load() {
    lblPath.Caption = row_.Path();
    Chooser.Start(row_.Path());
}

void frmBrowseQuick::CmdOK_Click() {
    if (module_.Busy()) return;  // a folder is still being made
    if (Chooser.Lists.Awaits([this] { CmdOK_Click(); })) return;
    const std::string folder = WithUpperFirst(Chooser.Lists.Folder());
    row_.lblPath.Caption = folder;
    if (row_.Name().empty()) row_.txtName.Text = folder;
    row_.txtName.SetFocus();
    row_.txtName.SelectAll();
    App().Unload(*this);
}

}  // namespace tavrix
