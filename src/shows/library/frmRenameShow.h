#pragma once

#include <string>

#include "dialogs/FileChooser.h"
#include "platform/forms/Application.h"
#include "platform/forms/TextBox.h"
#include "shows/library/ShowsFolder.h"

namespace tavrix {

class MainViewFrm;

/// The dialog that renames the file of a show. The recent shows and the screen saver's show follow; an editor that has it
/// open keeps the old name.
class frmRenameShow final : public forms::Form {
  public:
    frmRenameShow(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;

  public:
    FileChooser Chooser{*this, module_, ShowPattern};
    forms::Label lblFilename{*this, "lblFilename"};
    forms::TextBox txtFilename{*this, "txtFilename"};
    forms::CommandButton CmdRename{*this, "CmdRename"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;

  private:
    void File1_MouseUp();
    void File1_PathChange();
    void txtFilename_Change();
    void CmdRename_Click();

    /// The new name, with its ending. Empty when there is none that can be given, which the user is told.
    [[nodiscard]] std::string NewName(const std::string& oldName);
    [[nodiscard]] bool UserAgrees(const std::string& oldName, const std::string& newName);
    void Rename(const std::string& oldName, const std::string& newName);
    void Tell(const std::string& text, forms::BoxIcon icon = forms::BoxIcon::Information);

    bool typed_ = false;  ///< the name, while the shows of the folder have yet to come
};

/// The Rename Slide Show command.
void mnuRenameShow_Click(MainViewFrm& view);

}  // namespace tavrix
