#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/MainModule.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"

namespace tavrix {

class MainViewFrm;

/// What a window says in which it differs from the others that write the image to a file.
struct FileTargetWords {
    const char* nameLabel;  ///< of the file name; its mnemonic must be free in the window
    const char* noName;     ///< when no name was entered
    const char* newFile;    ///< before the name of a file that does not exist yet
    const char* failure;    ///< before the name of a file that could not be written
};

/// The part of a window in which the user says to which file the image on show is written: the name, and the folder by
/// drive and folder list and what brings these to a folder. The file that is written becomes the image on show.
class FileTarget {
  public:
    /// To be a member of the form.
    FileTarget(forms::Form& form, MainViewFrm& view, const FileTargetWords& words);
    FileTarget(const FileTarget&) = delete;
    FileTarget& operator=(const FileTarget&) = delete;

  private:
    forms::Form& form_;
    MainViewFrm& view_;
    MainModule& module_;
    FileTargetWords words_;

  public:
    LookedFiles Looked;
    forms::Label lblCurMsg;
    forms::Label lblCurrent;
    forms::Label lblFilename;
    forms::TextBox txtFilename;
    forms::Label lblDrives;
    forms::DriveListBox Drive1;
    forms::Label lblFolders;
    forms::DirListBox Dir1;
    forms::CommandButton CmdFF;
    forms::CommandButton CmdNew;

    FolderLists Lists;
    FolderButton FavoriteButton;

    /// Proposes this name in the folder of the image on show; that of the working file is nobody's choice, so the
    /// lists stay in the current folder then.
    void Start(const std::string& fileName);
    /// For the layout of the form.
    [[nodiscard]] forms::Layout Arrangement();

    /// The file as the user has chosen it, by its full path.
    [[nodiscard]] std::string FullName() const;
    /// Whether the name can be one; otherwise the user is told why not and the caret stands where it went wrong.
    bool NameIsUsable();
    /// Whether the user wants this file, which may be there already.
    bool UserAgrees();
    enum class AfterFailure : std::uint8_t { Close, AskAgain };
    /// Hides the window and writes the file, which then is the image on show, or tells that it could not be written.
    /// The window closes; after a failure it may be shown again instead, for another name or place. `write` gets the
    /// full path and throws RuntimeError.
    void Save(const std::function<void(const std::string& path)>& write,
              AfterFailure afterFailure = AfterFailure::Close);

  private:
    void lblCurrent_Click();
    void Tell(const std::string& text);
};

}  // namespace tavrix
