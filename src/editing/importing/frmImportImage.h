#pragma once

#include <string>

#include "dialogs/FileChooser.h"
#include "platform/forms/Application.h"

namespace tavrix {

/// The dialog that chooses a file to import. The command that opens it sets the pattern of its file list and the
/// caption.
class frmImportImage final : public forms::Form {
  public:
    /// The full path of the chosen file is left in a variable of the caller's. It is empty as long as none is chosen.
    frmImportImage(forms::Application& application, const MainModule& module, std::string& ImportFile);

  private:
    const MainModule& module_;
    std::string& importFile_;

  public:
    FileChooser Chooser{*this, module_, "*.*"};
    forms::CommandButton CmdImport{*this, "CmdImport"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

    void Form_Load() override { importFile_.clear(); }

  private:
    void CmdImport_Click();
};

}  // namespace tavrix
