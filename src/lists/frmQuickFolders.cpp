#include "lists/frmQuickFolders.h"

#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "lists/frmBrowseQuick.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

frmQuickFolders::frmQuickFolders(forms::Application& application, MainModule& module)
    : Form(application, {.name = "frmQuickFolders"}), module_(module) {
    Caption = "Select Quick Folders";
    HelpContext = HelpContext::QuickFolders;
    int slot = 0;
    for (QuickFolderRow& row : Rows) {
        ++slot;
        row.CmdBrowse.OnClick = [this, slot] { CmdBrowse_Click(slot); };
        row.lblPath.OnClick = [this, slot] { CmdBrowse_Click(slot); };
        row.CmdClear.OnClick = [&row] { CmdClear_Click(row); };
    }
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Click here to save changes to your quick folders.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Cancel all changes to quick folders.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::QuickFolders); };
    SetLayout(forms::Column({Rows[0].Arrangement(), Rows[1].Arrangement(), Rows[2].Arrangement(),
                             Rows[3].Arrangement(), forms::Stretch(),
                             forms::Row({forms::Stretch(), CmdOK, CmdCancel, CmdHelp})}));
}

QuickFolders frmQuickFolders::Fields() const {
    QuickFolders fields;
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        fields.names[i] = Rows[i].Name();
        fields.paths[i] = Rows[i].Path();
    }
    return fields;
}

void frmQuickFolders::Form_Load() {
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        Rows[i].txtName.Text = module_.config.QuickFolder[i];
        Rows[i].lblPath.Caption = module_.config.QuickFolderPath[i];
    }
    Rows[0].txtName.SelectAll();
}

void frmQuickFolders::CmdBrowse_Click(int slot) {
    if (module_.Busy()) return;
    forms::BusyGuard busy(module_.Screen());
    QuickFolderSlot = slot;
    module_.DoEvents();
    if (Unloaded()) return;  // the user was faster
    auto& browse = App().Load<frmBrowseQuick>(module_, *this);
    busy.Release();
    browse.ShowModal();
    Slot().txtName.SetFocus();
    module_.DoEvents();
}

void frmQuickFolders::CmdClear_Click(QuickFolderRow& row) {
    row.txtName.Text = "";
    row.lblPath.Caption = "";
    row.txtName.SetFocus();
}

bool frmQuickFolders::EachNameHasAFolder() {
    for (const QuickFolderRow& row : Rows) {
        if (row.Name().empty() || !row.Path().empty()) continue;
        App().MessageBox({.text = "A shortcut name for \"Quick Folder " + row.number +
                                  "\" was entered but a directory was not selected." + std::string(NewLine2) +
                                  "Press the Browse button to select a folder and then try again..."});
        return false;
    }
    return true;
}

void frmQuickFolders::CmdOK_Click() {
    if (!EachNameHasAFolder()) return;
    for (QuickFolderRow& row : Rows) {
        if (row.Name().empty()) row.txtName.Text = row.Path();
    }
    const QuickFolders fields = Fields();
    module_.config.QuickFolder = fields.names;
    module_.config.QuickFolderPath = fields.paths;
    App().Unload(*this);
}

void mnuQuickFolders_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    module.app.Load<frmQuickFolders>(module).ShowModal();
}

}  // namespace tavrix
