#pragma once

#include <string>

#include "browsing/ThumbnailList.h"
#include "core/ImageKinds.h"
#include "core/MainModule.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// What the two dialogs that make a list of thumbnails have in common: drive, folder and file list, the Favorite Folder
/// button, and what becomes of them.
class ThumbChooser {
  public:
    /// To be the form's first member of controls. All must outlive it.
    ThumbChooser(forms::Form& form, const MainModule& module, ThumbnailList& list);
    ThumbChooser(const ThumbChooser&) = delete;
    ThumbChooser& operator=(const ThumbChooser&) = delete;

  private:
    const MainModule& module_;
    ThumbnailList& list_;
    LookedFiles files_;

  public:
    forms::Label Label1;
    forms::Label lblDrives;
    forms::DriveListBox Drive1;
    forms::Label lblFolders;
    forms::DirListBox Dir1;
    forms::Label lblFiles;
    forms::FileListBox File1;
    forms::CommandButton CmdFF;
    FolderLists Lists;
    FolderButton FavoriteButton;

    /// Drive and folder list, one below the other.
    [[nodiscard]] forms::Layout Folders();
    /// Goes to the folder of the image on show, where that is a file of the user's.
    void Start();
    /// The folder looked at is the current one from now on, and the hourglass stays for whoever opened the dialog.
    void End();

    /// Whether the folder has yet to come from its disk.
    [[nodiscard]] bool Pending() const { return Lists.Pending(); }

    /// Whether there is an image in the folder; tells where there is none.
    [[nodiscard]] bool AnyFiles() const;
    /// The rows of the file list, these in their order, are the list of thumbnails from now on.
    void MakeList(const forms::RowRanges& rows);
};

}  // namespace tavrix
