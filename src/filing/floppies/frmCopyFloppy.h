#pragma once

#include <string>
#include <vector>

#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "filing/FileDrag.h"
#include "filing/SelectedFiles.h"
#include "filing/floppies/FloppyDisk.h"
#include "platform/forms/Application.h"
#include "platform/forms/Frame.h"

namespace tavrix {

/// Copies selected images from the floppy to a folder.
class frmCopyFloppy final : public forms::Form {
  public:
    frmCopyFloppy(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;
    FloppyDisk disk_{module_};

  public:
    LookedFiles Looked{*this, module_.platform.files};
    forms::Frame Frame1{*this, "Frame1"};
    SelectedFiles Files{Frame1, module_, [this] { return disk_.Root(); }};
    forms::CommandButton CmdNewDisk{Frame1, "CmdNewDisk"};
    forms::Frame Frame2{*this, "Frame2"};
    forms::Label lblDrives{Frame2, "lblDrives"};
    forms::DriveListBox Drive2{Frame2, "Drive2", module_.platform.files, module_.platform.drives};
    forms::Label lblFolders{Frame2, "lblFolders"};
    forms::DirListBox Dir2{Frame2, "Dir2", Looked};
    forms::CommandButton CmdNewFolder{Frame2, "CmdNewFolder"};
    forms::CommandButton CmdFF{Frame2, "CmdFF"};
    forms::CommandButton CmdCopy{*this, "CmdCopy"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

    FolderLists Lists{module_, Looked, Drive2, Dir2, nullptr, BadDrive::Program};
    FolderButton FavoriteButton{*this,
                                module_,
                                CmdFF,
                                Lists,
                                [this] { return QuickFoldersOf(module_); },
                                {.closeEntryIsDefault = true}};
    FileDrag Drag{Files.File1, Dir2, [this] { CmdCopy_Click(); }};

    void Form_Load() override;
    void Form_Activate() override;

  private:
    void CmdCopy_Click();
    [[nodiscard]] bool UserAgrees(const std::vector<std::string>& names,
                                  const std::string& destination) const;
    void Tell(const std::string& text) const;
};

}  // namespace tavrix
