#pragma once

#include <functional>
#include <string>

#include "core/MainModule.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// The part of a window in which one folder is chosen: drive and folder list, what brings them to a folder, a look
/// into the folder, and the free space of the drive.
class FolderChooser {
  public:
    /// To be a member of the form. `quickFolders` is what the popup of the folder button offers.
    FolderChooser(forms::Form& form, const MainModule& module, std::function<QuickFolders()> quickFolders);
    FolderChooser(const FolderChooser&) = delete;
    FolderChooser& operator=(const FolderChooser&) = delete;

  private:
    const MainModule& module_;

  public:
    LookedFiles Looked;
    forms::Label lblDrives;
    forms::DriveListBox Drive1;
    forms::Label lblFolders;
    forms::DirListBox Dir1;
    forms::CommandButton CmdFF2;
    forms::CommandButton CmdMyDocuments;
    forms::CommandButton CmdNewFolder;
    forms::CommandButton CmdExplore;
    forms::Label lblFreeSpaceMsg;
    forms::Label lblFreeSpace;

    FolderLists Lists;
    FolderButton FavoriteButton;

    /// Sends the lists to a folder, as far as there is one, and shows the free space of their drive.
    void Start(const std::string& folder);
    /// For the layout of the form.
    [[nodiscard]] forms::Layout Arrangement();

  private:
    void CmdMyDocuments_Click();

    void ShowFreeSpace();
    /// Asks whether to make a folder that is missing, and makes it; whether it is there now.
    bool MakeMissing(const std::string& folder);
    void TellFailure(const std::string& text);
};

}  // namespace tavrix
