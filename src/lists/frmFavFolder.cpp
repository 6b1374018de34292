#include "lists/frmFavFolder.h"

#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

frmFavFolder::frmFavFolder(forms::Application& application, MainModule& module)
    : Form(application, {.name = "frmFavFolder"}), module_(module) {
    Caption = "Favorite Folder";
    HelpContext = HelpContext::FavoriteFolder;
    lblPathMsg.Caption = "Current Favorite Folder:";
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

void frmFavFolder::Form_Load() {
    lblPath.Caption = module_.config.FavoriteFolder;
    Chooser.Start(module_.config.FavoriteFolder);
}

void frmFavFolder::CmdOK_Click() {
    if (module_.Busy()) return;  // a folder is still being made
    if (Chooser.Lists.Awaits([this] { CmdOK_Click(); })) return;
    module_.config.FavoriteFolder = Chooser.Dir1.Path;
    App().Unload(*this);
}

void mnuFavoriteFolder_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    forms::BusyGuard busy(module.Screen());
    auto& dialog = module.app.Load<frmFavFolder>(module);
    busy.Release();
    dialog.ShowModal();
}

}  // namespace tavrix
