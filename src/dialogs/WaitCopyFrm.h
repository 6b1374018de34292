#pragma once

#include "core/MainModule.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// The small modeless window beside a copying loop. Its button asks the loop to stop.
class WaitCopyFrm final : public forms::Form {
  public:
    WaitCopyFrm(forms::Application& application, MainModule& module);

    forms::Label lblMsg{*this, "lblMsg"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void CmdCancel_Click();

    MainModule& module_;
};

}  // namespace tavrix
