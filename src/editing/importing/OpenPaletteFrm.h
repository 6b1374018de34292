#pragma once

#include "dialogs/FileChooser.h"
#include "platform/forms/Application.h"

namespace tavrix {

class MainViewFrm;

/// The dialog of an import that this release does not have: it chooses a file whose color palette would be taken.
class OpenPaletteFrm final : public forms::Form {
  public:
    OpenPaletteFrm(forms::Application& application, const MainModule& module);

  private:
    const MainModule& module_;

  public:
    FileChooser Chooser{*this, module_, "*.dib;*.bmp;*.gif"};
    forms::CommandButton CmdOpen{*this, "CmdOpen"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

  private:
    void CmdOpen_Click();
};

/// The Import Color Palette command.
void mnuImportPalette_Click(MainViewFrm& view);

}  // namespace tavrix
