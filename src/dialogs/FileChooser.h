#pragma once

#include <optional>
#include <string>

#include "core/MainModule.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// The part of a window in which the user selects a file that is there: file, folder and drive list, and the folder
/// button.
class FileChooser {
  public:
    /// To be a member of the form. The pattern is that of the file list.
    FileChooser(forms::Form& form, const MainModule& module, const std::string& pattern,
                BadDrive badDrive = BadDrive::Returns);
    FileChooser(const FileChooser&) = delete;
    FileChooser& operator=(const FileChooser&) = delete;

  private:
    const MainModule& module_;

  public:
    LookedFiles Looked;
    forms::Label lblFiles;
    forms::FileListBox File1;
    forms::Label lblFolders;
    forms::DirListBox Dir1;
    forms::Label lblDrives;
    forms::DriveListBox Drive1;
    forms::CommandButton CmdFF;

    FolderLists Lists;
    FolderButton FavoriteButton;

    /// The lists and, beside them, the form's buttons with the folder button below.
    [[nodiscard]] forms::Layout Arrangement(const forms::Layout& buttons);

    /// The full path of the selected file. Nothing when there is none, which the user is told: that the list has no
    /// files, or that none of them is selected.
    [[nodiscard]] std::optional<std::string> Selected(const std::string& noFiles,
                                                      const std::string& noneSelected) const;
};

}  // namespace tavrix
