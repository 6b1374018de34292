#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/MainModule.h"
#include "platform/forms/DirListBox.h"
#include "platform/forms/DriveListBox.h"
#include "platform/forms/FileListBox.h"

namespace tavrix {

/// What the lists of a dialog do about a drive that cannot be read, once the user has been told.
enum class BadDrive : std::uint8_t {
    Returns,  ///< the drive list returns to the drive of the folder list
    Program   ///< drive and folder list go to the program's folder; the work is under the hourglass
};

/// The drive, folder and file lists of a dialog, chained: a change of the drive gives the folder list the drive, and
/// a change of the folder gives the file list the path.
class FolderLists {
  public:
    /// `files` may be null. The controls outlive this object, which takes their change events.
    FolderLists(const MainModule& module, forms::DriveListBox& drives, forms::DirListBox& folders,
                forms::FileListBox* files, BadDrive badDrive = BadDrive::Returns);
    FolderLists(const FolderLists&) = delete;
    FolderLists& operator=(const FolderLists&) = delete;

    /// Sends the drive list and the folder list to a full drive path, which is spelled as on the disk from then on. Throws
    /// what the two lists throw.
    void GoTo(const std::string& folder);
    /// The folder of the folder list, with a backslash at the end.
    [[nodiscard]] std::string Folder() const;
    [[nodiscard]] forms::DirListBox& Dir() const { return folders_; }

    /// The folder list has come to another folder, and the file list with it.
    std::function<void()> OnFolderChange;

  private:
    void Drive1_Change();
    void Dir1_Change();
    void TellBadDrive();
    void TellOpenFailure(const std::string& path, const RuntimeError& error);

    const MainModule& module_;
    forms::DriveListBox& drives_;
    forms::DirListBox& folders_;
    forms::FileListBox* files_;
    BadDrive badDrive_;
};

}  // namespace tavrix
