#pragma once

#include <optional>
#include <string>

#include "core/MainModule.h"
#include "dialogs/FileChooser.h"
#include "platform/forms/Application.h"
#include "platform/forms/TextBox.h"
#include "shows/files/WriteSlideFile.h"
#include "shows/library/ShowsFolder.h"

namespace tavrix {

/// The dialog that saves all slides of the shared show under a name. It needs no editor; SaveFromArrays says whose show it
/// is.
class SaveSlideFile final : public forms::Form {
  public:
    /// `current` is the path of the show, or a name without a folder for one that has not been saved yet. What came of the
    /// save is put into a variable of the caller's: nothing when there was none.
    SaveSlideFile(forms::Application& application, MainModule& module, const std::string& current,
                  std::optional<SaveEnd>& end);

  private:
    MainModule& module_;
    std::string current_;
    std::optional<SaveEnd>& end_;

  public:
    forms::Label lblName{*this, "lblName"};
    forms::TextBox txtFilename{*this, "txtFilename"};
    FileChooser Chooser{*this, module_, ShowPattern};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdNew{*this, "CmdNew"};

    void Form_Load() override;
    void Form_Activate() override { txtFilename.SetFocus(); }

  private:
    void CmdOK_Click();
    void File1_Click();

    /// Whether the user wants this file, which may be there already.
    [[nodiscard]] bool UserAgrees(const std::string& path) const;
    [[nodiscard]] bool UserSays(const std::string& question) const;
};

/// Lets the user save the shared show under a name, in SaveSlideFile. What came of it; nothing when the user gave up.
std::optional<SaveEnd> SaveShowAs(MainModule& module, const std::string& current);

}  // namespace tavrix
