#pragma once

#include "editing/saving/FileTarget.h"
#include "platform/forms/Application.h"

namespace tavrix {

/// The dialog that copies the file of the image on show, byte for byte; the copy then is the image on show.
class SaveCopyFrm final : public forms::Form {
  public:
    SaveCopyFrm(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;
    MainModule& module_;

  public:
    FileTarget Target{
        *this,
        view_,
        {.nameLabel = "&Enter a filename:",
         .noName = "You forgot to enter a filename, unable to save a copy of the current image...",
         .newFile = "About to save the image as:",
         .failure = "Unable to save a copy of the image:"}};
    forms::CommandButton CmdSave{*this, "CmdSave"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

    void Form_Load() override;
    void Form_Activate() override { Target.txtFilename.SetFocus(); }

  private:
    void CmdSave_Click();
    /// Whether a path is that of the image on show, or leads to the same file.
    [[nodiscard]] bool IsCurrentImage(const std::string& path) const;
};

/// The Copy Current Image command.
void mnuSaveCopy_Click(MainViewFrm& view);

}  // namespace tavrix
