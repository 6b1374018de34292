#pragma once

#include "core/MainModule.h"
#include "dialogs/FolderChooser.h"
#include "lists/frmQuickFolders.h"
#include "platform/forms/Application.h"

namespace tavrix {

/// The dialog that chooses the folder of one quick folder: the one that QuickFolderSlot of the open frmQuickFolders
/// tells. The folder goes into the fields there and not into the settings.
class frmBrowseQuick final : public forms::Form {
  public:
    frmBrowseQuick(forms::Application& application, const MainModule& module, frmQuickFolders& folders);

  private:
    const MainModule& module_;
    frmQuickFolders& folders_;
    QuickFolderRow& row_;

  public:
    FolderChooser Chooser{*this, module_, [this] { return folders_.Fields(); }};
    forms::Label lblPathMsg{*this, "lblPathMsg"};
    forms::Label lblPath{*this, "lblPath"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;

  private:
    void CmdOK_Click();
};

}  // namespace tavrix
