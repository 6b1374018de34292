#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/MainModule.h"
#include "dialogs/LookedFiles.h"
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
/// a change of the folder gives the file list the path. None of them waits for a disk: a folder that is long in coming is
/// empty until it has come, under the pointer of one who works. What it fails with then is told as if it had failed at
/// once, and the lists go back to where they were.
class FolderLists {
  public:
    /// What is told of a folder that could not be entered.
    using Failure = std::function<void(const RuntimeError& error)>;

    /// `looked` are the files of the folder list and of the file list; `files` may be null. The controls outlive this
    /// object, which takes their change events, and those of the files.
    FolderLists(const MainModule& module, LookedFiles& looked, forms::DriveListBox& drives,
                forms::DirListBox& folders, forms::FileListBox* files, BadDrive badDrive = BadDrive::Returns);
    FolderLists(const FolderLists&) = delete;
    FolderLists& operator=(const FolderLists&) = delete;

    /// Sends the drive list and the folder list to a full drive path, which is spelled as on the disk from then on. Throws
    /// what the two lists throw; what is known later is told to `late`, once the lists are back.
    void GoTo(const std::string& folder, Failure late = {});
    /// Sends the folder list alone to a folder, by the path as it is; failures are those of GoTo.
    void Show(const std::string& folder, Failure late = {});
    /// The folder of the folder list, with a backslash at the end.
    [[nodiscard]] std::string Folder() const;
    /// Reads the file list, which there is, again; what is current and selected stays so. The list stays until the new one has come.
    void RefreshFiles();

    /// Whether the folder has yet to come.
    [[nodiscard]] bool Pending() const { return looked_.Pending(); }
    /// Whether it has yet to come; then this is done when it has, unless the user goes to another one or does something
    /// else here.
    [[nodiscard]] bool Awaits(std::function<void()> then) { return looked_.Awaits(std::move(then)); }
    // See LookedFiles.
    [[nodiscard]] bool Wishes() const { return looked_.Wishes(); }
    void Forget() { looked_.Forget(); }
    /// Does this when the folder has come: now where it has.
    void WhenRead(std::function<void()> then) { looked_.WhenRead(std::move(then)); }
    /// Runs messages until the folder has come, for works that hold the hourglass. Whether the lists are still there, in
    /// the folder that they were in.
    [[nodiscard]] bool Wait();

    /// The folder list has come to another folder, and the file list with it. The content may have yet to come.
    std::function<void()> OnFolderChange;
    /// The content has come, or it has yet to come from now on.
    std::function<void()> OnContent = [] {};

  private:
    /// Why the lists are where they are.
    struct Cause {
        enum class Kind : std::uint8_t { Stays, Opened, Drive, Sent } kind = Kind::Opened;
        Failure late;
    };

    void Drive1_Change();
    void Dir1_Change();
    void Assign(const std::string& path, Cause cause);
    void TellBadDrive();
    void TellOpenFailure(const std::string& path, const RuntimeError& error);
    void Come();
    void Fail(const std::string& folder, const RuntimeError& error);
    /// Reads the folder list again, or goes above a folder that is gone, without a word.
    void Refresh();
    /// Back to the folder that was read last.
    void Return();
    void TellLate(const Cause& cause, const std::string& folder, const RuntimeError& error);
    void NoteRead();
    void TakeFiles();
    void ShowPending();

    const MainModule& module_;
    LookedFiles& looked_;
    forms::DriveListBox& drives_;
    forms::DirListBox& folders_;
    forms::FileListBox* files_;
    BadDrive badDrive_;
    Cause next_;                           ///< of the change that is being made
    Cause cause_{Cause::Kind::Stays, {}};  ///< of the last one
    std::string read_;                     ///< the folder that was read last; empty: none
    bool keepsRows_ = false;               ///< when the awaited folder has come
};

}  // namespace tavrix
