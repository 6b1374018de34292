#pragma once

#include <string>
#include <vector>

#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// The tip of the day: one of the lines of TIPOFDAY.DAT, by chance, and from there on in their order.
class frmTip final : public forms::Form {
  public:
    frmTip(forms::Application& application, MainModule& module);

    forms::Label lblHeading{*this, "lblHeading"};
    forms::Label lblTipText{*this, "lblTipText"};
    forms::CheckBox chkLoadTipsAtStartup{*this, "chkLoadTipsAtStartup"};
    forms::CommandButton cmdNextTip{*this, "cmdNextTip"};
    forms::CommandButton cmdOK{*this, "cmdOK"};

    /// The tip that is shown, counted from 1; 0 without tips.
    int CurrentTip = 0;

    void Form_Load() override;

  private:
    void cmdNextTip_Click();
    void chkLoadTipsAtStartup_Click();

    /// Reads the tips and shows one. False without a tip; the former ones stay then.
    bool LoadTips(const std::string& path);
    void DisplayCurrentTip();

    MainModule& module_;
    std::vector<std::string> tips_;
};

}  // namespace tavrix
