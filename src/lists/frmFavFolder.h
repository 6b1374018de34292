#pragma once

#include "core/MainModule.h"
#include "dialogs/FolderChooser.h"
#include "platform/forms/Application.h"

namespace tavrix {

class MainViewFrm;

/// The dialog that sets the favorite folder.
class frmFavFolder final : public forms::Form {
  public:
    frmFavFolder(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;

  public:
    FolderChooser Chooser{*this, module_, [this] { return QuickFoldersOf(module_); }};
    forms::Label lblPathMsg{*this, "lblPathMsg"};
    forms::Label lblPath{*this, "lblPath"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;

  private:
    void CmdOK_Click();
};

/// The Favorite Folder command.
void mnuFavoriteFolder_Click(MainViewFrm& view);

}  // namespace tavrix
