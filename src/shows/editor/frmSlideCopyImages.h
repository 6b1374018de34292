#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dialogs/FileTransfer.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"

namespace tavrix {

class MainViewFrm;

/// Copies or moves the files that are selected in the editor's source list to another folder.
class frmSlideCopyImages final : public forms::Form {
  public:
    /// What is to be copied or moved.
    struct Sources {
        std::string folder;              ///< with a backslash at the end
        std::vector<std::string> names;  ///< in the order of the list; one or more
        bool move = false;
    };
    /// What the editor does for this dialog.
    struct Editor {
        /// A file has another path: the rows that name it follow. Whether there were any.
        std::function<bool(const std::string& from, const std::string& to)> Moved;
        std::function<void()> RefreshSources;
    };

    frmSlideCopyImages(forms::Application& application, MainViewFrm& view, Sources sources, Editor editor);

  private:
    MainViewFrm& view_;
    MainModule& module_;

  public:
    LookedFiles Looked{*this, module_.platform.files};
    forms::Label lblSource{*this, "lblSource"};
    forms::Label lblSourcePath{*this, "lblSourcePath"};
    forms::Label lblSelected{*this, "lblSelected"};
    forms::Label lblNumSelected{*this, "lblNumSelected"};
    forms::Label lblDrives{*this, "lblDrives"};
    forms::DriveListBox Drive1{*this, "Drive1", module_.platform.files, module_.platform.drives};
    forms::Label lblFolders{*this, "lblFolders"};
    forms::DirListBox Dir1{*this, "Dir1", Looked};
    forms::CommandButton CmdFF2{*this, "CmdFF2"};
    forms::CommandButton CmdNewFolder{*this, "CmdNewFolder"};
    forms::CommandButton CmdExplore{*this, "CmdExplore"};
    forms::CommandButton CmdCopy{*this, "CmdCopy"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    FolderLists Lists{module_, Looked, Drive1, Dir1, nullptr};
    FolderButton FavoriteButton{*this, module_, CmdFF2, Lists, [this] { return QuickFoldersOf(module_); }};

    void Form_Load() override;

  private:
    void lblSourcePath_Click();
    void CmdCopy_Click();

    /// "copy" or "move".
    [[nodiscard]] std::string Word() const;
    [[nodiscard]] bool UserAgrees(const std::string& destination);
    void Transfer(const std::string& destination);
    /// The copy is there and the original stays; whether to go on with the others.
    [[nodiscard]] bool GoesOnWithout(const TransferItem& item, const RuntimeError& error);
    void Tell(const std::string& text);

    Sources sources_;
    Editor editor_;
    bool sourceStayed_ = false;  ///< and the user wanted to end there
};

}  // namespace tavrix
