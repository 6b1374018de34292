#pragma once

#include <string>

#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"

namespace tavrix {

class MainViewFrm;

/// The dialog in which the folder is chosen that the image on show is moved to.
class frmMoveCurrentImg final : public forms::Form {
  public:
    /// `moveTarget` becomes the folder, with a backslash at the end; it stays as it was where none is chosen.
    frmMoveCurrentImg(forms::Application& application, MainModule& module, std::string& moveTarget);

  private:
    MainModule& module_;

  public:
    LookedFiles Looked{*this, module_.platform.files};
    forms::Label lblCurMsg{*this, "lblCurMsg"};
    forms::Label lblCurrent{*this, "lblCurrent"};
    forms::Label lblDrives{*this, "lblDrives"};
    forms::DriveListBox Drive1{*this, "Drive1", module_.platform.files, module_.platform.drives};
    forms::Label lblFolders{*this, "lblFolders"};
    forms::DirListBox Dir1{*this, "Dir1", Looked};
    forms::CommandButton CmdMove{*this, "CmdMove"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdNew{*this, "CmdNew"};
    forms::CommandButton CmdFF2{*this, "CmdFF2"};

    FolderLists Lists{module_, Looked, Drive1, Dir1, nullptr, BadDrive::Program};
    FolderButton FavoriteButton{*this,
                                module_,
                                CmdFF2,
                                Lists,
                                [this] { return QuickFoldersOf(module_); },
                                {.closeEntryIsDefault = true}};

    void Form_Load() override;

  private:
    void lblCurrent_Click();
    void CmdMove_Click();

    std::string& moveTarget_;
};

/// The Move Current Image command.
void mnuMoveCurrentImg_Click(MainViewFrm& view);

}  // namespace tavrix
