#pragma once

#include <string>
#include <vector>

#include "filing/SelectedFiles.h"
#include "filing/floppies/FloppyDisk.h"
#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/TextBox.h"

namespace tavrix {

/// Deletes selected images from the floppy, with their thumbnail files if that is wanted. No recycle bin takes part.
class frmDeleteFloppy final : public forms::Form {
  public:
    frmDeleteFloppy(forms::Application& application, MainModule& module);

  private:
    MainModule& module_;
    FloppyDisk disk_{module_};

  public:
    forms::Label lblMsg{*this, "lblMsg"};
    SelectedFiles Files{*this, module_, [this] { return disk_.Root(); }};
    forms::CommandButton CmdRefresh{*this, "CmdRefresh"};
    forms::CheckBox CheckDelThumbnail{*this, "CheckDelThumbnail"};
    forms::TextBox txtExt{*this, "txtExt"};
    forms::CommandButton CmdAllThumbnails{*this, "CmdAllThumbnails"};
    forms::CommandButton CmdCopy{*this, "CmdCopy"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

    void Form_Load() override;
    void Form_Activate() override { ReadDisk(); }

  private:
    void ReadDisk();
    void CheckDelThumbnail_Click();
    void CmdAllThumbnails_Click();
    void txtExt_KeyPress(std::string& character);
    void CmdCopy_Click();
    [[nodiscard]] bool UserAgrees(const std::vector<std::string>& names) const;
    void Delete(const std::vector<std::string>& names);
    void Tell(const std::string& text) const;
};

}  // namespace tavrix
