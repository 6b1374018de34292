#pragma once

#include <string>

#include "core/ImageKinds.h"
#include "dialogs/FileChooser.h"
#include "platform/forms/Application.h"

namespace tavrix {

class MainViewFrm;

/// The dialog that renames images.
class RenameImgFrm final : public forms::Form {
  public:
    RenameImgFrm(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;
    MainModule& module_;

  public:
    FileChooser Chooser{*this, module_, PatternOf(ImagesShown::All), BadDrive::Program};
    forms::CommandButton CmdRename{*this, "CmdRename"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;

  private:
    void CmdRename_Click();
};

/// The Rename Current Image command.
void mnuRenameCurrentImg_Click(MainViewFrm& view);

}  // namespace tavrix
