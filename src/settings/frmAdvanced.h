#pragma once

#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// The dialog of the advanced settings: drives, deleting, recent documents and the preview. Nothing changes before OK.
class frmAdvanced final : public forms::Form {
  public:
    frmAdvanced(forms::Application& application, MainModule& module);

    forms::Label lblFloppy{*this, "lblFloppy"};
    forms::ComboBox ComboFloppy{*this, "ComboFloppy"};
    forms::Label lblCDROM{*this, "lblCDROM"};
    forms::ComboBox ComboCDROM{*this, "ComboCDROM"};
    forms::CommandButton CmdDefaultCD{*this, "CmdDefaultCD"};
    forms::Label lblDelay{*this, "lblDelay"};
    forms::ComboBox ComboDelay{*this, "ComboDelay"};
    forms::Label lblDelayNote{*this, "lblDelayNote"};
    forms::CheckBox CheckRecycleBin{*this, "CheckRecycleBin"};
    forms::CheckBox CheckRecentDocs{*this, "CheckRecentDocs"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;

  private:
    void CmdOK_Click();
    void CmdDefaultCD_Click();

    void ListCdDrives();
    /// Selects the entry of a drive by its letter. False, and nothing is selected, where there is none.
    bool SelectCdDrive(const std::string& drive);

    MainModule& module_;
};

}  // namespace tavrix
