#pragma once

#include <string>

#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// The dialog that removes an empty folder.
class DeleteFolderFrm final : public forms::Form {
  public:
    DeleteFolderFrm(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;

  public:
    LookedFiles Looked{*this, module_.platform.files, "*.*"};
    forms::Label lblDrives{*this, "lblDrives"};
    forms::DriveListBox Drive1{*this, "Drive1", module_.platform.files, module_.platform.drives};
    forms::Label lblFolders{*this, "lblFolders"};
    forms::DirListBox Dir1{*this, "Dir1", Looked};
    forms::FileListBox File1{*this, "File1", Looked};  ///< hidden, for what the folder holds
    forms::CommandButton CmdDelete{*this, "CmdDelete"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};
    forms::CommandButton CmdFF{*this, "CmdFF"};

    FolderLists Lists{module_, Looked, Drive1, Dir1, &File1, BadDrive::Program};
    FolderButton FavoriteButton{*this, module_, CmdFF, Lists, [this] { return QuickFoldersOf(module_); }};

    void Form_Load() override;

  private:
    void CmdDelete_Click();
    void DeleteAsRead();
};

}  // namespace tavrix
