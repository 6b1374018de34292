#pragma once

#include <string>

#include "core/MainModule.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// Deletes the package in a folder, and the folder with it.
class DelPackageFrm final : public forms::Form {
  public:
    DelPackageFrm(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;

  public:
    LookedFiles Looked{*this, module_.platform.files};
    forms::Label lblMsg{*this, "lblMsg"};
    forms::Label lblDrives{*this, "lblDrives"};
    forms::DriveListBox Drive1{*this, "Drive1", module_.platform.files, module_.platform.drives};
    forms::Label lblFolders{*this, "lblFolders"};
    forms::DirListBox Dir1{*this, "Dir1", Looked};
    forms::CommandButton CmdDelete{*this, "CmdDelete"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};
    forms::CommandButton CmdFF{*this, "CmdFF"};

    FolderLists Lists{module_, Looked, Drive1, Dir1, nullptr};
    FolderButton FavoriteButton{*this, module_, CmdFF, Lists, [this] { return QuickFoldersOf(module_); }};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override { cancel = works_; }

  private:
    void Dir1_Change();
    void TellWhatIsThere();
    void CmdDelete_Click();

    [[nodiscard]] bool UserAgrees(const std::string& folder, const std::string& name);
    void Refuse(const std::string& text);

    bool works_ = false;  ///< a package is being deleted
};

}  // namespace tavrix
